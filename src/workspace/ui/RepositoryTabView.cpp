#include "workspace/ui/RepositoryTabView.h"

#include "changes/ChangesPaneViewModel.h"
#include "changes/ui/ChangesPage.h"
#include "content/ui/CreateBranchSheet.h"
#include "core/support/UserDefaults.h"
#include "graph/RepoGraphPaneViewModel.h"
#include "graph/ui/GraphPane.h"
#include "graph/ui/GraphTableView.h"
#include "graph/ui/RepoHistoryPane.h"
#include "settings/LocalizationManager.h"
#include "sidebar/ui/CreateTagSheet.h"
#include "workspace/ContentViewModel.h"
#include "workspace/WorkspaceTabState.h"
#include "workspace/WorkspaceViewModel.h"

#include <QAction>
#include <QEvent>
#include <QSplitter>
#include <QStackedWidget>
#include <QTabBar>
#include <QVBoxLayout>

namespace orvel {

namespace {

QString splitterKey(const QSplitter& splitter) {
    return QStringLiteral("splitterState/") + splitter.objectName();
}

} // namespace

RepositoryTabView::RepositoryTabView(WorkspaceTabState& tab, UserDefaults& defaults, QWidget* parent)
    : QWidget(parent), tab_(tab), defaults_(defaults), historyPane_(new RepoHistoryPane(tab.graph(), this)),
      changesPage_(new ChangesPage(tab.changes(), this)), pageSwitch_(new QTabBar(this)),
      pages_(new QStackedWidget(this)) {
    setObjectName(QStringLiteral("repository-tab"));
    buildPages();
    graphPane().table().viewport()->installEventFilter(this);
    connect(&tab_, &WorkspaceTabState::workingTreeCountsChanged, historyPane_,
            [pane = historyPane_](int staged, int unstaged) {
                pane->setWorkingTreeChangeCount(staged + unstaged);
            });
    connect(&tab_.graph(), &RepoGraphPaneViewModel::createBranchRequested, this,
            &RepositoryTabView::showCreateBranch);
    connect(&tab_.graph(), &RepoGraphPaneViewModel::createTagRequested, this,
            &RepositoryTabView::showCreateTag);
    restoreSplitterStates();
}

void RepositoryTabView::buildPages() {
    pageSwitch_->setObjectName(QStringLiteral("workspace.page-switch"));
    pageSwitch_->setDocumentMode(true);
    pageSwitch_->setExpanding(false);
    pageSwitch_->addTab(QString());
    pageSwitch_->addTab(QString());
    pages_->addWidget(changesPage_);
    pages_->addWidget(historyPane_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(pageSwitch_);
    layout->addWidget(pages_, 1);

    WorkspaceViewModel& workspace = tab_.workspace();
    // Alt+1 and Alt+2 switch pages from anywhere in the tab.
    const std::pair<WorkspaceTab, const char*> pages[] = {{WorkspaceTab::changes, "Alt+1"},
                                                          {WorkspaceTab::repoHistory, "Alt+2"}};
    for (const auto& [page, keys] : pages) {
        auto* action = new QAction(this);
        action->setShortcut(QKeySequence(QString::fromLatin1(keys)));
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        connect(action, &QAction::triggered, &workspace,
                [&workspace, page = page] { workspace.setActiveTab(page); });
        addAction(action);
    }
    connect(pageSwitch_, &QTabBar::currentChanged, &workspace, [&workspace](int index) {
        workspace.setActiveTab(index == 0 ? WorkspaceTab::changes : WorkspaceTab::repoHistory);
    });
    connect(&workspace, &WorkspaceViewModel::activeTabChanged, this, &RepositoryTabView::showActivePage);
    connect(historyPane_, &RepoHistoryPane::goToChangesRequested, &workspace,
            [&workspace] { workspace.setActiveTab(WorkspaceTab::changes); });
    connect(changesPage_, &ChangesPage::fileSelected, &workspace,
            [&workspace](const FileChange& file, bool staged) {
                workspace.showDiff(file, std::nullopt, false, staged);
            });
    connect(historyPane_, &RepoHistoryPane::showDiffRequested, &workspace,
            [&workspace](const FileChange& file, const std::string& hash, bool isMerge) {
                workspace.showDiff(file, hash, isMerge, false);
            });
    connect(historyPane_, &RepoHistoryPane::showWorkingTreeDiffRequested, &workspace,
            [&workspace](const FileChange& file, bool staged) {
                workspace.showDiff(file, std::nullopt, false, staged);
            });
    connect(&tab_.content(), &ContentViewModel::fileChangesChanged, historyPane_,
            [this] { historyPane_->setWorkingTreeFiles(tab_.content().fileChanges()); });
    retranslate();
    showActivePage();
}

void RepositoryTabView::retranslate() {
    pageSwitch_->setTabText(0, localized("Changes"));
    pageSwitch_->setTabText(1, localized("History"));
    pageSwitch_->setAccessibleName(localized("Page"));
}

void RepositoryTabView::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void RepositoryTabView::showActivePage() {
    const int index = tab_.workspace().activeTab() == WorkspaceTab::changes ? 0 : 1;
    pageSwitch_->setCurrentIndex(index);
    pages_->setCurrentIndex(index);
}

GraphPane& RepositoryTabView::graphPane() const {
    return historyPane_->graphPane();
}

RepositoryTabView::~RepositoryTabView() {
    saveSplitterStates();
}

void RepositoryTabView::showCreateBranch(const std::string& hash) {
    auto* sheet = new CreateBranchSheet(tab_.repo(), hash, tab_.service(), this);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    connect(sheet, &CreateBranchSheet::created, &tab_, &WorkspaceTabState::refresh);
    sheet->open();
}

void RepositoryTabView::showCreateTag(const std::string& hash) {
    auto* sheet = new CreateTagSheet(tab_.repo(), hash, tab_.service(), this);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    connect(sheet, &CreateTagSheet::created, &tab_, &WorkspaceTabState::refresh);
    sheet->open();
}

void RepositoryTabView::saveSplitterStates() const {
    for (const QSplitter* splitter : findChildren<QSplitter*>())
        if (!splitter->objectName().isEmpty())
            defaults_.setValue(splitterKey(*splitter), splitter->saveState());
}

void RepositoryTabView::restoreSplitterStates() {
    for (QSplitter* splitter : findChildren<QSplitter*>())
        if (!splitter->objectName().isEmpty())
            splitter->restoreState(defaults_.value(splitterKey(*splitter)).toByteArray());
}

bool RepositoryTabView::eventFilter(QObject* watched, QEvent* event) {
    if (!graphPainted_ && event->type() == QEvent::Paint && watched == graphPane().table().viewport() &&
        !tab_.graph().commits().empty()) {
        graphPainted_ = true;
        // Queued, so that it is told once this paint has ended.
        QMetaObject::invokeMethod(this, &RepositoryTabView::graphPainted, Qt::QueuedConnection);
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace orvel
