// Who last changed each line of a file: the commit's short hash, its author and date, the line's
// number and text.
#pragma once

#include "diff/ui/FileSheet.h"

namespace orvel {

class BlameSheet final : public FileSheet {
    Q_OBJECT

  public:
    BlameSheet(RepoEntry repo, std::string path, std::shared_ptr<GitServiceProtocol> service,
               QWidget* parent = nullptr);

  protected:
    QStringList columns() const override;
    QString caption() const override;
    QString countLine() const override;
    QString emptyText() const override;
    void fill(QStandardItemModel& table) const override;
};

} // namespace orvel
