#include "workspace/ui/RepositoryTabView.h"

#include "content/ui/CreateBranchSheet.h"
#include "core/support/UserDefaults.h"
#include "graph/RepoGraphPaneViewModel.h"
#include "settings/LocalizationManager.h"
#include "sidebar/ui/CreateTagSheet.h"
#include "workspace/WorkspaceTabState.h"

#include <QEvent>
#include <QLabel>
#include <QSplitter>
#include <QVBoxLayout>

namespace orvel {

namespace {

QString splitterKey(const QSplitter& splitter) {
    return QStringLiteral("splitterState/") + splitter.objectName();
}

} // namespace

RepositoryTabView::RepositoryTabView(WorkspaceTabState& tab, UserDefaults& defaults, QWidget* parent)
    : QWidget(parent), tab_(tab), defaults_(defaults), placeholder_(new QLabel(this)) {
    setObjectName(QStringLiteral("repository-tab"));
    placeholder_->setObjectName(QStringLiteral("repository-tab.history-placeholder"));
    placeholder_->setAlignment(Qt::AlignCenter);
    placeholder_->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(placeholder_);
    placeholder_->installEventFilter(this);
    connect(&tab_, &WorkspaceTabState::workingTreeCountsChanged, this, &RepositoryTabView::showCounts);
    connect(&tab_.graph(), &RepoGraphPaneViewModel::commitsChanged, this, &RepositoryTabView::retranslate);
    connect(&tab_.graph(), &RepoGraphPaneViewModel::createBranchRequested, this,
            &RepositoryTabView::showCreateBranch);
    connect(&tab_.graph(), &RepoGraphPaneViewModel::createTagRequested, this,
            &RepositoryTabView::showCreateTag);
    restoreSplitterStates();
    retranslate();
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
    if (!graphPainted_ && watched == placeholder_ && event->type() == QEvent::Paint &&
        !tab_.graph().commits().empty()) {
        graphPainted_ = true;
        // Queued, so that it is told once this paint has ended.
        QMetaObject::invokeMethod(this, &RepositoryTabView::graphPainted, Qt::QueuedConnection);
    }
    return QWidget::eventFilter(watched, event);
}

void RepositoryTabView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void RepositoryTabView::showCounts(int staged, int unstaged) {
    staged_ = staged;
    unstaged_ = unstaged;
    retranslate();
}

void RepositoryTabView::retranslate() {
    placeholder_->setText(localized("%1\n\n%2 commits loaded\nStaged: %3   Unstaged: %4")
                              .arg(QString::fromStdString(tab_.repo().path))
                              .arg(tab_.graph().cachedGraphCommits().size())
                              .arg(staged_)
                              .arg(unstaged_));
}

} // namespace orvel
