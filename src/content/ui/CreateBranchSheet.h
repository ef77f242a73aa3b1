// The sheet that asks for a new branch at a commit: the name, cleaned and checked as it is typed,
// and whether to check the branch out. Create stays disabled until the name would be accepted;
// a failure of git shows in the sheet, success raises created() and closes it.
#pragma once

#include "core/records/RepoEntry.h"
#include "widgets/OSheet.h"

#include <memory>
#include <string>

class QCheckBox;
class QLabel;
class QLineEdit;

namespace orvel {

class CreateBranchViewModel;
class GitServiceProtocol;

class CreateBranchSheet final : public OSheet {
    Q_OBJECT

  public:
    CreateBranchSheet(RepoEntry repo, std::string startPoint, std::shared_ptr<GitServiceProtocol> service,
                      QWidget* parent = nullptr);

  signals:
    void created();

  protected:
    void retranslate() override;

  private:
    void showState();

    CreateBranchViewModel* model_;
    QLabel* startPointLabel_;
    QLabel* startPoint_;
    QLabel* nameLabel_;
    QLineEdit* nameField_;
    QLabel* counter_;
    OInlineMessage* validation_;
    QCheckBox* checkoutToggle_;
};

} // namespace orvel
