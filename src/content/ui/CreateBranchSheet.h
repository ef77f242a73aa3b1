// The sheet that asks for a new branch: the name, cleaned and checked as it is typed, and whether
// to check the branch out. Create stays disabled until the name would be accepted. At a commit the
// sheet creates the branch itself: a failure of git shows in the sheet, success raises created()
// and closes it. At HEAD, from the toolbar or menu, it also asks what happens to local changes and
// hands everything to its host through createRequested().
#pragma once

#include "content/LocalChangesOption.h"
#include "core/records/RepoEntry.h"
#include "widgets/OSheet.h"

#include <memory>
#include <string>

class QButtonGroup;
class QCheckBox;
class QLabel;
class QLineEdit;
class QToolButton;

namespace orvel {

class CreateBranchViewModel;
class GitServiceProtocol;

class CreateBranchSheet final : public OSheet {
    Q_OBJECT

  public:
    CreateBranchSheet(RepoEntry repo, std::string startPoint, std::shared_ptr<GitServiceProtocol> service,
                      QWidget* parent = nullptr);
    // The sheet that hands its answer over; `startPoint` shows under "Create branch at:". The choice
    // of what happens to local changes is offered for a branch at HEAD only.
    CreateBranchSheet(const QString& startPoint, bool offersLocalChanges, QWidget* parent = nullptr);

  signals:
    void created();
    void createRequested(const QString& name, bool checkout, LocalChangesOption localChanges);

  protected:
    void retranslate() override;

  private:
    CreateBranchSheet(CreateBranchViewModel* model, bool handsOver, bool offersLocalChanges, QWidget* parent);
    void showState();
    void addLocalChangesChoice();
    void confirm();

    CreateBranchViewModel* model_;
    QLabel* startPointLabel_;
    QLabel* startPoint_;
    QLabel* nameLabel_;
    QLineEdit* nameField_;
    QLabel* counter_;
    OInlineMessage* validation_;
    QCheckBox* checkoutToggle_;
    bool handsOver_;
    QToolButton* advancedToggle_ = nullptr;
    QWidget* advanced_ = nullptr;
    QLabel* localChangesLabel_ = nullptr;
    QButtonGroup* localChanges_ = nullptr;
};

} // namespace orvel
