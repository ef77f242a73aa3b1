#include "workspace/ui/RepositoryTabView.h"

#include "content/ui/CreateBranchSheet.h"
#include "core/support/UserDefaults.h"
#include "diff/DiffDetailViewModel.h"
#include "diff/ui/DiffPane.h"
#include "graph/RepoGraphPaneViewModel.h"
#include "graph/ui/GraphPane.h"
#include "graph/ui/GraphTableView.h"
#include "graph/ui/RepoHistoryPane.h"
#include "merge/ui/ConflictBanner.h"
#include "merge/ui/RebasePlanSheet.h"
#include "sidebar/ui/CreateTagSheet.h"
#include "sidebar/ui/SidebarView.h"
#include "workspace/WorkspaceTabState.h"

#include <QEvent>
#include <QSplitter>
#include <QVBoxLayout>

namespace orvel {

namespace {

QString splitterKey(const QSplitter& splitter) {
    return QStringLiteral("splitterState/") + splitter.objectName();
}

} // namespace

RepositoryTabView::RepositoryTabView(WorkspaceTabState& tab, UserDefaults& defaults, QWidget* parent)
    : QWidget(parent), tab_(tab), defaults_(defaults), sidebar_(new SidebarView(tab.sidebar(), this)),
      historyPane_(new RepoHistoryPane(tab.graph(), this)), diffPane_(new DiffPane(tab.diff(), this)) {
    setObjectName(QStringLiteral("repository-tab"));
    auto* columns = new QSplitter(Qt::Horizontal, this);
    columns->setObjectName(QStringLiteral("tabSplitter"));
    columns->setChildrenCollapsible(false);
    // Until the changes page holds the diff pane, a commit's file opens below the history.
    auto* historyAndDiff = new QSplitter(Qt::Vertical, this);
    historyAndDiff->setObjectName(QStringLiteral("repository-tab.history-diff"));
    historyAndDiff->addWidget(historyPane_);
    historyAndDiff->addWidget(diffPane_);
    diffPane_->hide();
    columns->addWidget(sidebar_);
    columns->addWidget(historyAndDiff);
    columns->setStretchFactor(1, 1);
    columns->setSizes({240, 1000});
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(new ConflictBanner(tab_.conflictBanner(), this));
    layout->addWidget(columns);
    connect(historyPane_, &RepoHistoryPane::showDiffRequested, this,
            [this](const FileChange& file, const std::string& hash, bool isMerge) {
                tab_.diff().showDiff(file, hash, isMerge, false);
                diffPane_->show();
            });
    connect(diffPane_, &DiffPane::closeRequested, diffPane_, &QWidget::hide);
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

void RepositoryTabView::showInteractiveRebase(const std::string& target) {
    // The sheet opens itself once the commits are read, or tells in a toast why it does not.
    auto* sheet = new RebasePlanSheet(tab_.repo(), target, tab_.service(), tab_.toasts(), this);
    connect(sheet, &RebasePlanSheet::rebaseEnded, &tab_, &WorkspaceTabState::refresh);
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
