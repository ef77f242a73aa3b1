// The commands of the "Workspace" menu: fetch, pull (always merging), push, force push, a new
// branch or tag, stash and pop, each on the active tab with the shortcut the user bound to it,
// and the settings window, which also opens when something asks for one of its tabs. The menu's
// commands log as "menu".
#pragma once

#include <QObject>

class QAction;
class QMenu;

namespace orvel {

class AppViewModel;
class GeneralSettingsViewModel;
class GitToolbarViewModel;
class SettingsDialog;
struct SettingsPageModels;
class WorkspaceCommandPrompts;
class WorkspaceCommands;

class WorkspaceMenu final : public QObject {
    Q_OBJECT

  public:
    // Adds the commands to `menu`; their prompts open over `window`. Pull goes through the
    // toolbar's model, so that a pull that will merge asks first there as well.
    WorkspaceMenu(AppViewModel& app, GitToolbarViewModel& toolbar, GeneralSettingsViewModel& generalSettings,
                  QMenu& menu, QWidget* window);

    bool eventFilter(QObject* watched, QEvent* event) override;
    // The models of the tabs that need the program's git; without them those tabs stay empty.
    void setSettingsPages(SettingsPageModels* pages) { settingsPages_ = pages; }

  private:
    void retranslate();
    void showActiveTab();
    void openSettings();
    static void showSettingsPages(SettingsDialog& dialog, SettingsPageModels& pages);
    // Pop needs a stash on the active tab.
    void showStashes();

    AppViewModel& app_;
    GeneralSettingsViewModel& generalSettings_;
    QMenu& menu_;
    QWidget* window_;
    WorkspaceCommands* commands_;
    WorkspaceCommandPrompts* prompts_;
    SettingsDialog* settings_ = nullptr;
    SettingsPageModels* settingsPages_ = nullptr;
    QAction* fetch_;
    QAction* pull_;
    QAction* push_;
    QAction* forcePush_;
    QAction* newBranch_;
    QAction* newTag_;
    QAction* stash_;
    QAction* popStash_;
    QAction* settingsAction_;
    QMetaObject::Connection stashesConnection_;
};

} // namespace orvel
