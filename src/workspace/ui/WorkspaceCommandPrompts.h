// The questions the workspace commands ask before they run, opened over one window: the force
// push warning, the stash name, the new branch and tag sheets, and the confirmation before local
// changes are discarded. The toolbar and the menu each keep one beside their own commands.
#pragma once

#include <QObject>

class QWidget;

namespace orvel {

class AppViewModel;
class WorkspaceCommands;

class WorkspaceCommandPrompts final : public QObject {
    Q_OBJECT

  public:
    // The prompts open over `window`'s window; `commands` runs what they confirm.
    WorkspaceCommandPrompts(AppViewModel& app, WorkspaceCommands& commands, QWidget* window);

    void askForcePush();
    void askStashName();
    void askNewBranch();
    void askNewTag();

  private:
    void askDiscard(int fileCount);

    AppViewModel& app_;
    WorkspaceCommands& commands_;
    QWidget* window_;
};

} // namespace orvel
