#include "workspace/ui/RepositoryTabView.h"

#include "changes/ChangesPaneViewModel.h"
#include "changes/ui/ChangesPage.h"
#include "content/ui/CreateBranchSheet.h"
#include "core/support/UserDefaults.h"
#include "diff/DiffDetailViewModel.h"
#include "diff/ui/BlameSheet.h"
#include "diff/ui/DiffPane.h"
#include "diff/ui/FileHistorySheet.h"
#include "graph/RepoGraphPaneViewModel.h"
#include "graph/ui/GraphPane.h"
#include "graph/ui/GraphTableView.h"
#include "graph/ui/RepoHistoryPane.h"
#include "merge/ConflictBannerViewModel.h"
#include "merge/InteractiveRebaseViewModel.h"
#include "merge/ui/ConflictBanner.h"
#include "merge/ui/RebasePlanSheet.h"
#include "settings/LocalizationManager.h"
#include "sidebar/SidebarViewModel.h"
#include "sidebar/ui/CreateTagSheet.h"
#include "sidebar/ui/SidebarView.h"
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
    : QWidget(parent), tab_(tab), defaults_(defaults),
      sidebar_(new SidebarView(tab.sidebar(), defaults, this)),
      historyPane_(new RepoHistoryPane(tab.graph(), this)), diffPane_(new DiffPane(tab.diff(), this)),
      changesPage_(new ChangesPage(tab.changes(), this)), pageSwitch_(new QTabBar(this)),
      pages_(new QStackedWidget(this)), historyAndDiff_(new QSplitter(Qt::Vertical, this)) {
    setObjectName(QStringLiteral("repository-tab"));
    buildPages();
    graphPane().table().viewport()->installEventFilter(this);
    connect(&tab_.graph(), &RepoGraphPaneViewModel::createBranchRequested, this,
            &RepositoryTabView::showCreateBranch);
    connect(&tab_.graph(), &RepoGraphPaneViewModel::createTagRequested, this,
            &RepositoryTabView::showCreateTag);
    connect(&tab_.sidebar(), &SidebarViewModel::interactiveRebaseRequested, this,
            &RepositoryTabView::showInteractiveRebase);
    restoreSplitterStates();
}

void RepositoryTabView::buildPages() {
    pageSwitch_->setObjectName(QStringLiteral("workspace.page-switch"));
    pageSwitch_->setDocumentMode(true);
    pageSwitch_->setExpanding(false);
    pageSwitch_->addTab(QString());
    pageSwitch_->addTab(QString());
    // A commit's file opens below the history; the working tree's beside the changes lists.
    historyAndDiff_->setObjectName(QStringLiteral("repository-tab.history-diff"));
    historyAndDiff_->addWidget(historyPane_);
    diffPane_->hide();
    pages_->addWidget(changesPage_);
    pages_->addWidget(historyAndDiff_);
    auto* pageColumn = new QWidget(this);
    auto* pageLayout = new QVBoxLayout(pageColumn);
    pageLayout->setContentsMargins(0, 0, 0, 0);
    pageLayout->setSpacing(0);
    pageLayout->addWidget(pageSwitch_);
    pageLayout->addWidget(pages_, 1);
    auto* columns = new QSplitter(Qt::Horizontal, this);
    columns->setObjectName(QStringLiteral("tabSplitter"));
    columns->setChildrenCollapsible(false);
    columns->addWidget(sidebar_);
    columns->addWidget(pageColumn);
    columns->setStretchFactor(1, 1);
    columns->setSizes({240, 1000});
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(new ConflictBanner(tab_.conflictBanner(), this));
    layout->addWidget(columns, 1);

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
    connect(
        &workspace, &WorkspaceViewModel::diffRequested, this,
        [this](const FileChange& file, const std::optional<std::string>& hash, bool isMerge, bool isStaged) {
            tab_.diff().showDiff(file, hash, isMerge, isStaged);
            showDiffPane(hash.has_value());
        });
    connect(diffPane_, &DiffPane::closeRequested, &workspace, &WorkspaceViewModel::closeDiff);
    connect(diffPane_, &DiffPane::openMergeEditorRequested, &tab_.conflictBanner(),
            [this](const std::string& path) { tab_.conflictBanner().openMergeEditor(path); });
    connect(&workspace, &WorkspaceViewModel::diffChanged, this, [this] {
        if (!tab_.workspace().isDiffPaneVisible())
            showDiffPane(std::nullopt);
    });
    // A row's "Blame This File" and "File History" open the diff's sheets.
    connect(&tab_.changes(), &ChangesPaneViewModel::blameRequested, this, [this](const std::string& path) {
        openSheet(new BlameSheet(tab_.repo(), path, tab_.service(), this));
    });
    connect(&tab_.changes(), &ChangesPaneViewModel::fileHistoryRequested, this,
            [this](const std::string& path) {
                openSheet(new FileHistorySheet(tab_.repo(), path, tab_.service(), this));
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

void RepositoryTabView::openSheet(QDialog* sheet) {
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->open();
}

void RepositoryTabView::showDiffPane(std::optional<bool> belowHistory) {
    QWidget* slot = &changesPage_->diffSlot();
    if (belowHistory == true && diffPane_->parentWidget() != historyAndDiff_)
        historyAndDiff_->addWidget(diffPane_);
    else if (belowHistory == false && diffPane_->parentWidget() != slot)
        slot->layout()->addWidget(diffPane_);
    // The placeholder gives way while a working-tree diff fills the slot.
    const bool besideLists = belowHistory == false;
    if (QWidget* placeholder = slot->findChild<QWidget*>(QStringLiteral("changes.diff-placeholder")))
        placeholder->setVisible(!besideLists);
    diffPane_->setVisible(belowHistory.has_value());
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

// The graph's own actions create the branch or the tag at the row's commit (or, for a tag, the
// commit picked in the sheet), with their notices and refresh.
void RepositoryTabView::showCreateBranch(const std::string& hash) {
    auto* sheet = new CreateBranchSheet(QString::fromStdString(hash), false, this);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    connect(sheet, &CreateBranchSheet::createRequested, &tab_.graph(),
            [graph = &tab_.graph(), hash](const QString& name, bool checkout) {
                graph->createBranch(name.toStdString(), hash, checkout);
            });
    sheet->open();
}

void RepositoryTabView::showCreateTag(const std::string& hash) {
    auto* sheet = new CreateTagSheet(tab_.repo(), hash, tab_.service(), this);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    connect(sheet, &CreateTagSheet::createRequested, &tab_.graph(),
            [graph = &tab_.graph()](const QString& name, const std::optional<QString>& message,
                                    const std::string& commit) {
                graph->createTag(name.toStdString(),
                                 message ? std::optional(message->toStdString()) : std::nullopt, commit);
            });
    sheet->open();
}

void RepositoryTabView::showInteractiveRebase(const std::string& target) {
    // The sheet opens itself once it has the commits, or tells in a toast why it does not.
    auto* sheet = new RebasePlanSheet(tab_.repo(), target, tab_.service(), tab_.toasts(), this);
    connect(sheet, &RebasePlanSheet::rebaseEnded, &tab_, &WorkspaceTabState::refresh);
    // When the sidebar asks, it has read the commits already.
    const auto& context = tab_.sidebar().interactiveRebaseContext();
    if (context && context->ontoBranch == target) {
        sheet->model().setEntries(context->entries);
        tab_.sidebar().clearInteractiveRebaseContext();
    } else {
        sheet->model().load();
    }
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
