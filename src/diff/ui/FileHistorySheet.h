// The commits that changed a file, newest first: short hash, subject, author and date.
#pragma once

#include "diff/ui/FileSheet.h"

namespace orvel {

class FileHistorySheet final : public FileSheet {
    Q_OBJECT

  public:
    FileHistorySheet(RepoEntry repo, std::string path, std::shared_ptr<GitServiceProtocol> service,
                     QWidget* parent = nullptr);

  protected:
    QStringList columns() const override;
    QString caption() const override;
    QString countLine() const override;
    QString emptyText() const override;
    void fill(QStandardItemModel& table) const override;
};

} // namespace orvel
