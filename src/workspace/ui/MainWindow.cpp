#include "workspace/ui/MainWindow.h"

#include "content/WelcomeViewModel.h"
#include "content/ui/WelcomeView.h"
#include "core/support/UserDefaults.h"
#include "core/support/Version.h"
#include "settings/GeneralSettingsViewModel.h"
#include "settings/LocalizationManager.h"
#include "widgets/BoundShortcut.h"
#include "workspace/AppViewModel.h"
#include "workspace/AutoFetchScheduler.h"
#include "workspace/FolderOpener.h"
#include "workspace/ShortcutText.h"
#include "workspace/ui/GitToolbar.h"
#include "workspace/ui/RepositoryTabView.h"
#include "workspace/ui/ToastOverlay.h"
#include "workspace/ui/UndoMenu.h"
#include "workspace/ui/WorkspaceMenu.h"

#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QMouseEvent>
#include <QProgressBar>
#include <QScreen>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTabBar>
#include <QVBoxLayout>

namespace orvel {

namespace {

const QString geometryKey = QStringLiteral("mainWindowGeometry");

// Qt names a tab's close button once, when it makes it; the name follows the language here.
void nameCloseButton(QTabBar& bar, int index) {
    if (QWidget* button = bar.tabButton(index, QTabBar::RightSide))
        button->setToolTip(localized("Close Tab"));
}

// The local folders among the dropped URLs.
QStringList droppedFolders(const QMimeData* data) {
    QStringList folders;
    if (!data || !data->hasUrls())
        return folders;
    for (const QUrl& url : data->urls())
        if (url.isLocalFile() && QFileInfo(url.toLocalFile()).isDir())
            folders.append(url.toLocalFile());
    return folders;
}

// A menu shows what follows a tab in an action's text as its shortcut, in place of Qt's own name
// for the keys.
void setMenuText(QAction& action, const QString& label) {
    action.setText(label + QLatin1Char('\t') + shortcutText(action.shortcut()));
}

// Sends an editing command to the focused widget, whichever kind of text field it is.
void forwardToFocus(const char* slot) {
    if (QWidget* focus = QApplication::focusWidget())
        QMetaObject::invokeMethod(focus, slot);
}

} // namespace

MainWindow::MainWindow(AppViewModel& model, UserDefaults& defaults, QWidget* parent)
    : QMainWindow(parent), model_(model), defaults_(defaults), folderOpener_(new FolderOpener(model, this)),
      generalSettings_(new GeneralSettingsViewModel(defaults, this)), pages_(new QStackedWidget(this)),
      welcomeModel_(new WelcomeViewModel(model.service(), this,
                                         std::shared_ptr<UserDefaults>(&defaults, [](UserDefaults*) {}))),
      welcome_(new WelcomeView(*welcomeModel_, pages_)), workArea_(new QWidget(pages_)),
      tabBar_(new QTabBar(workArea_)), tabViews_(new QStackedWidget(workArea_)),
      activityLabel_(new QLabel(this)), busy_(new QProgressBar(this)) {
    setObjectName(QStringLiteral("main-window"));
    setAcceptDrops(true);

    connect(welcome_, &WelcomeView::openRepositoryRequested, this,
            [this](const QString& path) { model_.openRepository(path.toStdString()); });
    connect(welcomeModel_, &WelcomeViewModel::removeRecentRequested, this,
            [this](const QString& path) { model_.removeFromRecents(path.toStdString()); });

    tabBar_->setObjectName(QStringLiteral("main-window.tabs"));
    tabBar_->setDocumentMode(true);
    tabBar_->setTabsClosable(true);
    tabBar_->setMovable(false);
    tabBar_->setExpanding(false);
    tabBar_->setElideMode(Qt::ElideMiddle);
    tabBar_->installEventFilter(this);
    tabViews_->setObjectName(QStringLiteral("main-window.tab-views"));
    auto* workLayout = new QVBoxLayout(workArea_);
    workLayout->setContentsMargins(0, 0, 0, 0);
    workLayout->setSpacing(0);
    workLayout->addWidget(tabBar_);
    workLayout->addWidget(tabViews_, 1);
    pages_->addWidget(welcome_);
    pages_->addWidget(workArea_);
    setCentralWidget(pages_);

    activityLabel_->setObjectName(QStringLiteral("main-window.activity"));
    busy_->setObjectName(QStringLiteral("main-window.busy"));
    busy_->setRange(0, 0); // git reports no progress for most work: a busy bar
    busy_->setMaximumWidth(160);
    busy_->setMaximumHeight(14);
    busy_->setTextVisible(false);
    statusBar()->addWidget(activityLabel_, 1);
    statusBar()->addPermanentWidget(busy_);

    new ToastOverlay(model_.toastManager(), this);
    toolbar_ = new GitToolbar(model_, this);
    addToolBar(toolbar_);
    buildMenus();
    retranslate();

    connect(tabBar_, &QTabBar::currentChanged, this, [this](int index) {
        if (index >= 0)
            model_.switchToTab(tabIdAt(index));
    });
    connect(tabBar_, &QTabBar::tabCloseRequested, this,
            [this](int index) { model_.closeTab(tabIdAt(index)); });
    connect(&model_, &AppViewModel::tabOpened, this, &MainWindow::addTab);
    connect(&model_, &AppViewModel::tabClosing, this, &MainWindow::removeTab);
    connect(&model_, &AppViewModel::activeTabChanged, this, &MainWindow::showActiveTab);
    connect(&model_, &AppViewModel::modeChanged, this, &MainWindow::showMode);
    connect(&model_, &AppViewModel::activityChanged, this, &MainWindow::showActivity);
    connect(&model_, &AppViewModel::recentRepositoriesChanged, this, &MainWindow::showRecents);
    connect(generalSettings_, &GeneralSettingsViewModel::appearanceChanged, this,
            &MainWindow::showAppearance);
    connect(generalSettings_, &GeneralSettingsViewModel::autoFetchIntervalApplied, &model_.autoFetch(),
            &AutoFetchScheduler::intervalChanged);
    for (const auto& tab : model_.openTabs())
        addTab(tab.get());
    showActiveTab();
    showMode();
    showActivity();
    showRecents();

    if (!restoreGeometry(defaults_.value(geometryKey).toByteArray()))
        placeOnFirstStart();
}

// Four fifths of the screen's room, in its middle: large enough for the history's columns beside
// the sidebar and the detail, small enough to show that it is a window.
void MainWindow::placeOnFirstStart() {
    const QRect available = screen()->availableGeometry();
    resize(available.size() * 4 / 5);
    move(available.center() - rect().center());
}

MainWindow::~MainWindow() = default;

void MainWindow::setSettingsPages(SettingsPageModels& pages) {
    workspaceMenuActions_->setSettingsPages(&pages);
}

RepositoryTabView* MainWindow::tabView(const QUuid& id) const {
    const int index = tabIndex(id);
    return index < 0 ? nullptr : qobject_cast<RepositoryTabView*>(tabViews_->widget(index));
}

void MainWindow::buildMenus() {
    fileMenu_ = menuBar()->addMenu(QString());
    openAction_ = fileMenu_->addAction(QString(), this, &MainWindow::browseForRepository);
    openAction_->setObjectName(QStringLiteral("menu.open-repository"));
    bindShortcut(*openAction_, KeyBindingID::openRepository);
    cloneAction_ = fileMenu_->addAction(QString(), welcome_, &WelcomeView::showCloneSheet);
    cloneAction_->setObjectName(QStringLiteral("menu.clone"));
    initAction_ = fileMenu_->addAction(QString(), welcome_, &WelcomeView::showInitSheet);
    initAction_->setObjectName(QStringLiteral("menu.initialize"));
    fileMenu_->addSeparator();
    closeTabAction_ = fileMenu_->addAction(QString(), this, [this] {
        if (WorkspaceTabState* tab = model_.activeTab())
            model_.closeTab(tab->id());
    });
    closeTabAction_->setObjectName(QStringLiteral("menu.close-tab"));
    closeTabAction_->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_W));
    fileMenu_->addSeparator();
    quitAction_ = fileMenu_->addAction(QString(), this, &QWidget::close);
    quitAction_->setObjectName(QStringLiteral("menu.quit"));
    quitAction_->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    quitAction_->setMenuRole(QAction::QuitRole);

    editMenu_ = menuBar()->addMenu(QString());
    copyAction_ = editMenu_->addAction(QString(), this, [] { forwardToFocus("copy"); });
    copyAction_->setShortcut(QKeySequence::Copy);
    copyAction_->setShortcutContext(Qt::WidgetShortcut); // text fields keep their own Ctrl+C
    pasteAction_ = editMenu_->addAction(QString(), this, [] { forwardToFocus("paste"); });
    pasteAction_->setShortcut(QKeySequence::Paste);
    pasteAction_->setShortcutContext(Qt::WidgetShortcut);
    selectAllAction_ = editMenu_->addAction(QString(), this, [] { forwardToFocus("selectAll"); });
    selectAllAction_->setShortcut(QKeySequence::SelectAll);
    selectAllAction_->setShortcutContext(Qt::WidgetShortcut);
    new UndoMenu(model_, *editMenu_, this); // Undo and Undo History…, above the clipboard commands

    viewMenu_ = menuBar()->addMenu(QString());
    appearanceMenu_ = viewMenu_->addMenu(QString());
    auto* appearances = new QActionGroup(this);
    auto addAppearance = [&](const QString& value) {
        QAction* action = appearanceMenu_->addAction(
            QString(), generalSettings_, [this, value] { generalSettings_->chooseAppearance(value); });
        action->setObjectName(QStringLiteral("menu.appearance.") + value);
        action->setCheckable(true);
        appearances->addAction(action);
        return action;
    };
    systemAction_ = addAppearance(QStringLiteral("system"));
    lightAction_ = addAppearance(QStringLiteral("light"));
    darkAction_ = addAppearance(QStringLiteral("dark"));
    showAppearance(generalSettings_->values().appearance);

    workspaceMenu_ = menuBar()->addMenu(QString());
    refreshAction_ = workspaceMenu_->addAction(QString(), this, [this] {
        if (WorkspaceTabState* tab = model_.activeTab())
            tab->refresh();
    });
    refreshAction_->setObjectName(QStringLiteral("menu.refresh"));
    refreshAction_->setShortcuts({QKeySequence::Refresh, QKeySequence(Qt::CTRL | Qt::Key_R)});
    workspaceMenuActions_ = new WorkspaceMenu(model_, toolbar_->model(), *generalSettings_, *workspaceMenu_, this);

    windowMenu_ = menuBar()->addMenu(QString());
    nextTabAction_ = windowMenu_->addAction(QString(), this, [this] { stepTab(1); });
    nextTabAction_->setObjectName(QStringLiteral("menu.next-tab"));
    nextTabAction_->setShortcuts(
        {QKeySequence(Qt::CTRL | Qt::Key_Tab), QKeySequence(Qt::CTRL | Qt::Key_PageDown)});
    previousTabAction_ = windowMenu_->addAction(QString(), this, [this] { stepTab(-1); });
    previousTabAction_->setObjectName(QStringLiteral("menu.previous-tab"));
    previousTabAction_->setShortcuts(
        {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab), QKeySequence(Qt::CTRL | Qt::Key_PageUp)});

    helpMenu_ = menuBar()->addMenu(QString());
    aboutAction_ = helpMenu_->addAction(QString(), this, [this] {
        auto* about = new QMessageBox(QMessageBox::NoIcon, localized("About Orvel"),
                                      localized("Orvel %1", QLatin1String(orvelVersion)), QMessageBox::Ok, this);
        about->setObjectName(QStringLiteral("about-box"));
        about->setInformativeText(
            localized("A desktop client for Git: graph first, merges second, no noise."));
        about->setAttribute(Qt::WA_DeleteOnClose);
        about->setWindowModality(Qt::WindowModal);
        about->open();
    });
    aboutAction_->setObjectName(QStringLiteral("menu.about"));
    aboutAction_->setMenuRole(QAction::AboutRole);
}

void MainWindow::retranslate() {
    fileMenu_->setTitle(localized("&File"));
    openAction_->setText(localized("Open Repository…"));
    cloneAction_->setText(localized("Clone…"));
    initAction_->setText(localized("Initialize…"));
    closeTabAction_->setText(localized("Close Tab"));
    quitAction_->setText(localized("Quit"));
    editMenu_->setTitle(localized("&Edit"));
    copyAction_->setText(localized("Copy"));
    pasteAction_->setText(localized("Paste"));
    selectAllAction_->setText(localized("Select All"));
    viewMenu_->setTitle(localized("&View"));
    appearanceMenu_->setTitle(localized("Appearance"));
    systemAction_->setText(localized("System"));
    lightAction_->setText(localized("Light"));
    darkAction_->setText(localized("Dark"));
    workspaceMenu_->setTitle(localized("Workspace"));
    refreshAction_->setText(localized("Refresh"));
    windowMenu_->setTitle(localized("&Window"));
    setMenuText(*nextTabAction_, localized("Next Tab"));
    setMenuText(*previousTabAction_, localized("Previous Tab"));
    helpMenu_->setTitle(localized("&Help"));
    aboutAction_->setText(localized("About Orvel"));
    tabBar_->setAccessibleName(localized("Repositories"));
    for (int index = 0; index < tabBar_->count(); ++index)
        nameCloseButton(*tabBar_, index);
    busy_->setAccessibleName(localized("Working"));
    updateTitle();
}

void MainWindow::addTab(WorkspaceTabState* tab) {
    auto* view = new RepositoryTabView(*tab, defaults_, tabViews_);
    connect(view, &RepositoryTabView::graphPainted, this, &MainWindow::graphPainted);
    const QSignalBlocker blocker(tabBar_);
    const int index = tabBar_->addTab(tab->title());
    tabBar_->setTabData(index, tab->id());
    tabBar_->setTabToolTip(index, QString::fromStdString(tab->repo().path));
    nameCloseButton(*tabBar_, index);
    tabViews_->insertWidget(index, view);
    connect(tab, &WorkspaceTabState::titleChanged, this, [this, tab] {
        const int at = tabIndex(tab->id());
        if (at >= 0)
            tabBar_->setTabText(at, tab->title());
        updateTitle();
    });
}

void MainWindow::removeTab(WorkspaceTabState* tab) {
    const int index = tabIndex(tab->id());
    if (index < 0)
        return;
    QWidget* view = tabViews_->widget(index);
    {
        const QSignalBlocker blocker(tabBar_);
        tabBar_->removeTab(index);
    }
    tabViews_->removeWidget(view);
    delete view;
}

void MainWindow::showActiveTab() {
    WorkspaceTabState* active = model_.activeTab();
    const int index = active ? tabIndex(active->id()) : -1;
    if (index >= 0) {
        const QSignalBlocker blocker(tabBar_);
        tabBar_->setCurrentIndex(index);
        tabViews_->setCurrentIndex(index);
    }
    updateTitle();
}

void MainWindow::showMode() {
    pages_->setCurrentWidget(model_.mode() == AppMode::working ? workArea_ : welcome_);
    closeTabAction_->setEnabled(model_.mode() == AppMode::working);
    refreshAction_->setEnabled(model_.mode() == AppMode::working);
    updateTitle();
}

void MainWindow::showActivity() {
    const auto& message = model_.activityMessage();
    activityLabel_->setText(message.value_or(QString()));
    busy_->setVisible(message.has_value());
}

void MainWindow::showRecents() {
    QStringList paths;
    for (const RepoEntry& entry : model_.recentRepositories())
        paths.append(QString::fromStdString(entry.path));
    welcomeModel_->setRecents(std::move(paths));
}

void MainWindow::updateTitle() {
    WorkspaceTabState* active = model_.activeTab();
    if (!active) {
        setWindowTitle(QStringLiteral("Orvel"));
        return;
    }
    setWindowTitle(QStringLiteral("%1 — Orvel").arg(active->title()));
}

void MainWindow::stepTab(int step) {
    const int count = tabBar_->count();
    if (count < 2)
        return;
    model_.switchToTab(tabIdAt((tabBar_->currentIndex() + step + count) % count));
}

void MainWindow::browseForRepository() {
    if (!openDialog_) {
        openDialog_ = new QFileDialog(this);
        openDialog_->setObjectName(QStringLiteral("open-repository.dialog"));
        openDialog_->setFileMode(QFileDialog::Directory);
        openDialog_->setOption(QFileDialog::ShowDirsOnly);
        openDialog_->setWindowModality(Qt::WindowModal);
        connect(openDialog_, &QFileDialog::fileSelected, this, [this](const QString& path) {
            if (!path.isEmpty())
                model_.openRepository(path.toStdString());
        });
    }
    openDialog_->setWindowTitle(localized("Select a Git repository"));
    openDialog_->open();
}

// The menu marks the appearance on show, also while the settings window previews one; a value
// other than light or dark is the system's.
void MainWindow::showAppearance(const QString& appearance) {
    QAction* shown = appearance == QLatin1String("light")  ? lightAction_
                     : appearance == QLatin1String("dark") ? darkAction_
                                                           : systemAction_;
    shown->setChecked(true);
}

void MainWindow::saveGeometry() const {
    defaults_.setValue(geometryKey, QMainWindow::saveGeometry());
    for (int index = 0; index < tabViews_->count(); ++index)
        if (auto* view = qobject_cast<RepositoryTabView*>(tabViews_->widget(index)))
            view->saveSplitterStates();
}

int MainWindow::tabIndex(const QUuid& id) const {
    for (int index = 0; index < tabBar_->count(); ++index)
        if (tabBar_->tabData(index).toUuid() == id)
            return index;
    return -1;
}

QUuid MainWindow::tabIdAt(int index) const {
    return tabBar_->tabData(index).toUuid();
}

void MainWindow::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QMainWindow::changeEvent(event);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    saveGeometry();
    QMainWindow::closeEvent(event);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!droppedFolders(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
    const QStringList folders = droppedFolders(event->mimeData());
    if (folders.isEmpty())
        return;
    event->acceptProposedAction();
    openFolders(folders);
}

void MainWindow::openFolders(const QStringList& folders) {
    folderOpener_->open(folders);
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    // A middle click closes the tab under the pointer, as in a browser.
    if (watched == tabBar_ && event->type() == QEvent::MouseButtonRelease) {
        auto* mouse = static_cast<QMouseEvent*>(event);
        const int index = tabBar_->tabAt(mouse->position().toPoint());
        if (mouse->button() == Qt::MiddleButton && index >= 0) {
            model_.closeTab(tabIdAt(index));
            return true;
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

} // namespace orvel
