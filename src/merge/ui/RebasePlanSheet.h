// The sheet in which an interactive rebase is planned: the commits to rebase, oldest first, each
// with its action; rows reorder by dragging or with Ctrl+Up and Ctrl+Down; exec rows, reworded
// messages and autosquash. It opens once its model has the commits (model().load() reads them,
// model().setEntries() hands them over), and only when there are some; Start runs the plan, tells
// the outcome in a toast and closes.
#pragma once

#include "core/records/RepoEntry.h"
#include "widgets/OSheet.h"

#include <memory>
#include <string>

class QTreeView;

namespace orvel {

class GitServiceProtocol;
class InteractiveRebaseViewModel;
class RebasePlanItemModel;
class ToastManager;

class RebasePlanSheet final : public OSheet {
    Q_OBJECT

  public:
    RebasePlanSheet(RepoEntry repo, std::string onto, std::shared_ptr<GitServiceProtocol> service,
                    ToastManager& toasts, QWidget* parent = nullptr);

    InteractiveRebaseViewModel& model() const { return *model_; }

  signals:
    // The rebase ran (whatever came of it): the repository may have changed.
    void rebaseEnded();

  protected:
    void retranslate() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void showPlan();
    void showState();
    int currentRow() const;
    void moveCurrent(int offset);
    void editMessage(int row);

    InteractiveRebaseViewModel* model_;
    RebasePlanItemModel* rows_ = nullptr;
    QLabel* subtitle_;
    QLabel* forecast_; // "Checking…", or why there is no conflict preview
    QTreeView* list_;
    QPushButton* moveUp_;
    QPushButton* moveDown_;
    QPushButton* editMessage_;
    QPushButton* addExec_;
    QPushButton* removeExec_;
    QPushButton* autosquash_;
};

} // namespace orvel
