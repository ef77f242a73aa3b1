// The program's window: the menu bar, the repository tabs over a stack of tab views that are made
// once and kept while hidden, the welcome page when no tab is open, and the status bar with the
// running activity. Folders dropped on the window open as repositories, one tab each.
#pragma once

#include <QMainWindow>
#include <QUuid>

class QActionGroup;
class QFileDialog;
class QLabel;
class QMenu;
class QProgressBar;
class QStackedWidget;
class QTabBar;

namespace orvel {

class AppViewModel;
class FolderOpener;
class GeneralSettingsViewModel;
class GitToolbar;
class RepositoryTabView;
struct SettingsPageModels;
class WorkspaceMenu;
class UserDefaults;
class WelcomeView;
class WelcomeViewModel;
class WorkspaceTabState;

class MainWindow final : public QMainWindow {
    Q_OBJECT

  public:
    MainWindow(AppViewModel& model, UserDefaults& defaults, QWidget* parent = nullptr);
    ~MainWindow() override;

    // The view of the tab with `id`, or none.
    RepositoryTabView* tabView(const QUuid& id) const;
    // The preferences that the settings window edits and the View menu's appearance shares.
    GeneralSettingsViewModel& generalSettings() const { return *generalSettings_; }
    // The models of the settings tabs that need the program's git.
    void setSettingsPages(SettingsPageModels& pages);
    // Opens each of `folders` as a tab, one after another.
    void openFolders(const QStringList& folders);

  signals:
    // A tab's history has been painted with its commits for the first time.
    void graphPainted();

  protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void buildMenus();
    void retranslate();
    void addTab(WorkspaceTabState* tab);
    void removeTab(WorkspaceTabState* tab);
    void showActiveTab();
    void showMode();
    void showActivity();
    void showRecents();
    void updateTitle();
    void stepTab(int step);
    void browseForRepository();
    void showAppearance(const QString& appearance);
    void saveGeometry() const;
    void placeOnFirstStart();
    int tabIndex(const QUuid& id) const;
    QUuid tabIdAt(int index) const;

    AppViewModel& model_;
    UserDefaults& defaults_;
    FolderOpener* folderOpener_;
    GeneralSettingsViewModel* generalSettings_;
    QStackedWidget* pages_;
    WelcomeViewModel* welcomeModel_;
    WelcomeView* welcome_;
    QWidget* workArea_;
    QTabBar* tabBar_;
    QStackedWidget* tabViews_;
    QLabel* activityLabel_;
    QProgressBar* busy_;
    GitToolbar* toolbar_ = nullptr;
    QFileDialog* openDialog_ = nullptr;

    QMenu* fileMenu_;
    QMenu* editMenu_;
    QMenu* viewMenu_;
    QMenu* appearanceMenu_;
    QMenu* workspaceMenu_;
    WorkspaceMenu* workspaceMenuActions_ = nullptr;
    QMenu* windowMenu_;
    QMenu* helpMenu_;
    QAction* openAction_;
    QAction* cloneAction_;
    QAction* initAction_;
    QAction* closeTabAction_;
    QAction* quitAction_;
    QAction* copyAction_;
    QAction* pasteAction_;
    QAction* selectAllAction_;
    QAction* systemAction_;
    QAction* lightAction_;
    QAction* darkAction_;
    QAction* refreshAction_;
    QAction* nextTabAction_;
    QAction* previousTabAction_;
    QAction* aboutAction_;
};

} // namespace orvel
