#include "graph/ui/RepoHistoryFileChangesSection.h"

#include "changes/FileTreeModel.h"
#include "changes/ui/FileTreeDelegate.h"
#include "graph/RepoGraphPaneViewModel.h"
#include "settings/LocalizationManager.h"
#include "widgets/Icons.h"

#include <QButtonGroup>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>

namespace orvel {

RepoHistoryFileChangesSection::RepoHistoryFileChangesSection(RepoGraphPaneViewModel& graph, QWidget* parent)
    : QWidget(parent), graph_(graph), files_(new FileTreeModel(this)), title_(new QLabel(this)),
      mergeNote_(new QLabel(this)), filter_(new QLineEdit(this)), sortButton_(new QToolButton(this)), listButton_(new QToolButton(this)),
      treeButton_(new QToolButton(this)), view_(new QTreeView(this)), hint_(new QLabel(this)) {
    QFont titleFont = title_->font();
    titleFont.setBold(true);
    title_->setFont(titleFont);
    filter_->setObjectName(QStringLiteral("history.file-filter"));
    filter_->setClearButtonEnabled(true);
    sortButton_->setObjectName(QStringLiteral("history.file-sort"));
    sortButton_->setAutoRaise(true);
    listButton_->setObjectName(QStringLiteral("history.file-mode-list"));
    treeButton_->setObjectName(QStringLiteral("history.file-mode-tree"));
    auto* modes = new QButtonGroup(this);
    for (QToolButton* button : {listButton_, treeButton_}) {
        button->setAutoRaise(true);
        button->setCheckable(true);
        modes->addButton(button);
    }
    listButton_->setChecked(true);
    view_->setObjectName(QStringLiteral("history.file-list"));
    view_->setModel(files_);
    view_->setItemDelegate(new FileTreeDelegate(view_));
    view_->setHeaderHidden(true);
    view_->setUniformRowHeights(true);
    view_->setAttribute(Qt::WA_Hover);
    view_->setExpandsOnDoubleClick(true);
    mergeNote_->setObjectName(QStringLiteral("history.file-merge-note"));
    mergeNote_->setWordWrap(true);
    hint_->setObjectName(QStringLiteral("history.file-hint"));
    hint_->setAlignment(Qt::AlignCenter);
    hint_->setWordWrap(true);
    hint_->setEnabled(false);

    auto* header = new QHBoxLayout;
    header->addWidget(title_);
    header->addWidget(filter_, 1);
    header->addWidget(sortButton_);
    header->addWidget(listButton_);
    header->addWidget(treeButton_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(header);
    layout->addWidget(mergeNote_);
    layout->addWidget(hint_);
    layout->addWidget(view_, 1);

    connect(filter_, &QLineEdit::textChanged, this, [this](const QString& text) {
        files_->setFilterText(text);
        showMode();
    });
    connect(sortButton_, &QToolButton::clicked, this, [this] {
        files_->setSortOrder(files_->sortOrder() == FileChangesSortOrder::ascend
                                 ? FileChangesSortOrder::descend
                                 : FileChangesSortOrder::ascend);
        retranslate();
    });
    connect(treeButton_, &QToolButton::toggled, this, [this](bool tree) {
        files_->setDisplayMode(tree ? ChangesDisplayMode::tree : ChangesDisplayMode::list);
        retranslate();
    });
    // A click opens a file's diff, as does Enter on the keyboard; a folder only opens or closes.
    connect(view_, &QTreeView::clicked, this, &RepoHistoryFileChangesSection::activate);
    connect(view_, &QTreeView::activated, this, &RepoHistoryFileChangesSection::activate);
    connect(&graph_, &RepoGraphPaneViewModel::fileChangesChanged, this,
            &RepoHistoryFileChangesSection::showFileChanges);
    connect(&graph_, &RepoGraphPaneViewModel::selectionChanged, this,
            &RepoHistoryFileChangesSection::showFileChanges);
    // The commit itself may come after its selection, once its row is loaded.
    connect(&graph_, &RepoGraphPaneViewModel::selectedCommitChanged, this,
            &RepoHistoryFileChangesSection::showMode);
    retranslate();
    showFileChanges();
}

void RepoHistoryFileChangesSection::setWorkingTreeFiles(std::vector<FileChange> files) {
    workingTreeFiles_ = std::move(files);
    if (isWorkingTreeSelected())
        showFileChanges();
}

bool RepoHistoryFileChangesSection::isWorkingTreeSelected() const {
    const GraphCommit* commit = graph_.selectedCommit();
    return commit && commit->hash == RepoGraphPaneViewModel::workingTreeHash;
}

void RepoHistoryFileChangesSection::showFileChanges() {
    if (isWorkingTreeSelected())
        files_->setFiles(workingTreeFiles_);
    else
        files_->setFiles(graph_.selectedNodeFileChanges().value_or(std::vector<FileChange>()));
    retranslate();
}

// The list, or in its place a hint: loading, the working-tree row, nothing left by the filter, or
// no files at all.
// A new tree opens fully.
void RepoHistoryFileChangesSection::showMode() {
    const GraphCommit* commit = graph_.selectedCommit();
    QString hint;
    if (graph_.isLoadingFileChanges())
        hint = localized("Loading file changes...");
    else if (files_->shownFileCount() == 0 && !filter_->text().isEmpty())
        hint = localized("No files match the filter");
    else if (files_->shownFileCount() == 0 && (graph_.selectedNodeFileChanges() || isWorkingTreeSelected()))
        hint = localized("No files changed in this commit");
    mergeNote_->setVisible(commit && commit->parentHashes.size() > 1);
    hint_->setText(hint);
    hint_->setVisible(!hint.isEmpty());
    view_->setVisible(hint.isEmpty());
    sortButton_->setEnabled(files_->displayMode() == ChangesDisplayMode::list);
    view_->setRootIsDecorated(files_->displayMode() == ChangesDisplayMode::tree);
    if (files_->displayMode() == ChangesDisplayMode::tree)
        view_->expandAll();
}

void RepoHistoryFileChangesSection::activate(const QModelIndex& index) {
    const FileChange* file = files_->file(index);
    const GraphCommit* commit = graph_.selectedCommit();
    if (!file || !commit)
        return;
    if (isWorkingTreeSelected()) {
        // A file changed only in the index shows its staged diff; any other its work tree's.
        const bool stagedOnly = file->status.kind == FileStatusKind::Case::tracked &&
                                file->status.worktree == TrackedStatus::unmodified;
        emit showWorkingTreeDiffRequested(*file, stagedOnly);
        return;
    }
    emit showDiffRequested(*file, commit->hash, commit->parentHashes.size() > 1);
}

void RepoHistoryFileChangesSection::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void RepoHistoryFileChangesSection::retranslate() {
    const auto& changes = graph_.selectedNodeFileChanges();
    if (isWorkingTreeSelected())
        title_->setText(localized("%1 file(s)", static_cast<int>(workingTreeFiles_.size())));
    else
        title_->setText(changes ? localized("%1 file(s)", static_cast<int>(changes->size()))
                                : localized("Files"));
    mergeNote_->setText(localized("Changes against the first parent"));
    filter_->setPlaceholderText(localized("Filter files"));
    filter_->setAccessibleName(localized("Filter changed files"));
    const bool ascending = files_->sortOrder() == FileChangesSortOrder::ascend;
    sortButton_->setIcon(themedIcon(ascending ? QStringLiteral("view-sort-ascending")
                                              : QStringLiteral("view-sort-descending")));
    sortButton_->setText(ascending ? localized("A-Z") : localized("Z-A"));
    sortButton_->setToolTip(localized("Sort by path"));
    sortButton_->setAccessibleName(ascending ? localized("Sorted by path, ascending")
                                             : localized("Sorted by path, descending"));
    listButton_->setText(localized("List"));
    listButton_->setAccessibleName(localized("Show as list"));
    treeButton_->setText(localized("Tree"));
    treeButton_->setAccessibleName(localized("Show as tree"));
    showMode();
}

} // namespace orvel
