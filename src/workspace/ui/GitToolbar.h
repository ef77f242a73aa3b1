// The toolbar above the repository tabs: Fetch, Pull with its strategies (asking first when it will
// merge), Push with the commits it would send and Force Push, Branch, New Tag and Stash, then the status of
// the work under way or the current branch's distance from its upstream. Every button acts on the active tab.
#pragma once

#include <QToolBar>

#include <map>

class QAction;
class QActionGroup;
class QMenu;

namespace orvel {

class AppViewModel;
class GitToolbarButton;
class GitToolbarViewModel;
class ToolbarStatusView;
class WorkspaceCommandPrompts;
enum class PullStrategy;

class GitToolbar final : public QToolBar {
    Q_OBJECT

  public:
    GitToolbar(AppViewModel& app, QWidget* parent = nullptr);

    GitToolbarViewModel& model() const { return *model_; }

  protected:
    void changeEvent(QEvent* event) override;

  private:
    GitToolbarButton* addButton(const char* identifier, const char* icon);
    void retranslate();
    void showState();
    // The question before a pull that will merge, with the prediction once it comes.
    void askPull();

    GitToolbarViewModel* model_;
    WorkspaceCommandPrompts* prompts_;
    GitToolbarButton* fetch_;
    GitToolbarButton* pull_;
    GitToolbarButton* push_;
    GitToolbarButton* branch_;
    GitToolbarButton* tag_;
    GitToolbarButton* stash_;
    QMenu* pullMenu_;
    QActionGroup* strategies_;
    std::map<PullStrategy, QAction*> strategyActions_;
    QMenu* pushMenu_;
    QAction* forcePush_;
    QMenu* stashMenu_;
    QAction* stashChanges_;
    QAction* popStash_;
    ToolbarStatusView* status_;
};

} // namespace orvel
