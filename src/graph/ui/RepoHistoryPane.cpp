#include "graph/ui/RepoHistoryPane.h"

#include "core/support/UserDefaults.h"
#include "graph/RepoGraphPaneViewModel.h"
#include "graph/ui/GraphPane.h"
#include "graph/ui/RepoHistoryAuthorsSection.h"
#include "graph/ui/RepoHistoryCommitMessageSection.h"
#include "graph/ui/RepoHistoryFileChangesSection.h"
#include "graph/ui/RepoHistoryNotificationSection.h"
#include "settings/LocalizationManager.h"

#include <QEvent>
#include <QFrame>
#include <QLabel>
#include <QSplitter>
#include <QVBoxLayout>

namespace orvel {

namespace {

const QString splitterKey = QStringLiteral("repoHistorySplitterState");

QFrame* separator(QWidget* parent) {
    auto* line = new QFrame(parent);
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    return line;
}

} // namespace

RepoHistoryPane::RepoHistoryPane(RepoGraphPaneViewModel& graph, QWidget* parent)
    : QWidget(parent), graph_(graph), settings_(std::make_unique<SettingsUserDefaults>()),
      splitter_(new QSplitter(Qt::Horizontal, this)), graphPane_(new GraphPane(graph, splitter_)),
      notification_(new RepoHistoryNotificationSection), emptyHint_(new QLabel),
      message_(new RepoHistoryCommitMessageSection), authors_(new RepoHistoryAuthorsSection),
      fileChanges_(new RepoHistoryFileChangesSection(graph)) {
    auto* detail = new QWidget(splitter_);
    detail->setObjectName(QStringLiteral("history.detail"));
    auto* detailLayout = new QVBoxLayout(detail);
    detailLayout->addWidget(notification_);
    detailLayout->addWidget(emptyHint_, 1);
    separators_ = {separator(detail), separator(detail)};
    detailLayout->addWidget(message_);
    detailLayout->addWidget(separators_[0]);
    detailLayout->addWidget(authors_);
    detailLayout->addWidget(separators_[1]);
    detailLayout->addWidget(fileChanges_, 1);
    emptyHint_->setAlignment(Qt::AlignCenter);
    emptyHint_->setWordWrap(true);
    emptyHint_->setEnabled(false);

    splitter_->addWidget(graphPane_);
    splitter_->addWidget(detail);
    // The table needs the room: it starts with seven tenths of the page, down to what the detail
    // needs, and takes what the page gains.
    splitter_->setStretchFactor(0, 1);
    splitter_->setStretchFactor(1, 0);
    splitter_->setChildrenCollapsible(false);
    if (!splitter_->restoreState(settings_->value(splitterKey).toByteArray()))
        splitter_->setSizes({700, 300});
    // The store writes to disk from the event loop, not at every step of a drag.
    connect(splitter_, &QSplitter::splitterMoved, this,
            [this] { settings_->setValue(splitterKey, splitter_->saveState()); });
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(splitter_);

    connect(notification_, &RepoHistoryNotificationSection::goToChangesRequested, this,
            &RepoHistoryPane::goToChangesRequested);
    connect(fileChanges_, &RepoHistoryFileChangesSection::showDiffRequested, this,
            &RepoHistoryPane::showDiffRequested);
    connect(fileChanges_, &RepoHistoryFileChangesSection::showWorkingTreeDiffRequested, this,
            &RepoHistoryPane::showWorkingTreeDiffRequested);
    connect(authors_, &RepoHistoryAuthorsSection::parentActivated, this,
            [this](const std::string& hash) { graph_.selectCommit(hash); });
    connect(&graph_, &RepoGraphPaneViewModel::selectedCommitChanged, this, &RepoHistoryPane::showSelection);
    retranslate();
    showSelection();
}

RepoHistoryPane::~RepoHistoryPane() = default;

// One row a path: a file with staged and unstaged changes counts once.
void RepoHistoryPane::setWorkingTreeFiles(std::vector<FileChange> files) {
    notification_->setChangeCount(static_cast<int>(files.size()));
    fileChanges_->setWorkingTreeFiles(std::move(files));
}

void RepoHistoryPane::showSelection() {
    const GraphCommit* commit = graph_.selectedCommit();
    message_->setCommit(commit);
    authors_->setCommit(commit);
    fileChanges_->setVisible(commit != nullptr);
    emptyHint_->setVisible(commit == nullptr);
    for (QFrame* line : separators_)
        line->setVisible(commit != nullptr);
}

void RepoHistoryPane::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void RepoHistoryPane::retranslate() {
    emptyHint_->setText(localized("Select a commit to see its message, authors and changed files."));
}

} // namespace orvel
