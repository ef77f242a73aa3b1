#include "changes/ui/ChangesFileSection.h"

#include "changes/ChangesPaneViewModel.h"
#include "changes/FileTreeModel.h"
#include "changes/StatusRows.h"
#include "changes/ui/ChangesFileMenu.h"
#include "changes/ui/FileTreeDelegate.h"
#include "settings/LocalizationManager.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QItemSelection>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>

#include <functional>

namespace orvel {

namespace {

// Every file row below `parent`, depth first.
void forEachFileRow(const FileTreeModel& model, const QModelIndex& parent,
                    const std::function<void(const QModelIndex&, const FileChange&)>& visit) {
    const int rows = model.rowCount(parent);
    for (int row = 0; row < rows; ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        if (const FileChange* file = model.file(index))
            visit(index, *file);
        else
            forEachFileRow(model, index, visit);
    }
}

} // namespace

ChangesFileSection::ChangesFileSection(ChangesPaneViewModel& model, bool staged, QWidget* parent)
    : QWidget(parent), model_(model), staged_(staged), files_(new FileTreeModel(this)),
      title_(new QLabel(this)), listAction_(new QPushButton(this)), view_(new QTreeView(this)) {
    QFont titleFont = title_->font();
    titleFont.setBold(true);
    title_->setFont(titleFont);
    listAction_->setObjectName(staged ? QStringLiteral("changes-pane.unstage-all")
                                      : QStringLiteral("changes-pane.stage-all"));
    listAction_->setFlat(true);
    view_->setObjectName(staged ? QStringLiteral("changes-pane.staged-list")
                                : QStringLiteral("changes-pane.unstaged-list"));
    view_->setModel(files_);
    view_->setItemDelegate(new FileTreeDelegate(view_));
    view_->setHeaderHidden(true);
    view_->setUniformRowHeights(true);
    view_->setAttribute(Qt::WA_Hover);
    view_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    view_->setContextMenuPolicy(Qt::CustomContextMenu);
    view_->installEventFilter(this);

    auto* header = new QHBoxLayout;
    header->setContentsMargins(4, 0, 0, 0);
    header->addWidget(title_, 1);
    header->addWidget(listAction_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addLayout(header);
    layout->addWidget(view_, 1);

    connect(listAction_, &QPushButton::clicked, this, &ChangesFileSection::runListAction);
    connect(view_, &QTreeView::customContextMenuRequested, this, &ChangesFileSection::openMenu);
    connect(view_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &ChangesFileSection::selectionEdited);
    // A click or moving the current row with the keys shows the file's diff.
    auto select = [this](const QModelIndex& index) {
        if (const FileChange* file = files_->file(index); file && !restoring_)
            emit fileSelected(*file, staged_);
    };
    connect(view_, &QTreeView::clicked, this, select);
    connect(view_->selectionModel(), &QItemSelectionModel::currentChanged, this, select);
    connect(view_, &QTreeView::doubleClicked, this, [this](const QModelIndex& index) {
        if (const FileChange* file = files_->file(index))
            moveToOtherList(*file);
    });
    connect(&model_, &ChangesPaneViewModel::listsChanged, this, &ChangesFileSection::showFiles);
    connect(&model_, &ChangesPaneViewModel::selectionChanged, this, [this] {
        // The section whose view made the change already shows it.
        if (!restoring_)
            restoreSelection();
        retranslate();
    });
    connect(&model_, &ChangesPaneViewModel::displayModeChanged, this, &ChangesFileSection::showMode);
    showMode();
}

void ChangesFileSection::showFiles() {
    files_->setFiles(staged_ ? model_.filteredStagedFiles() : model_.filteredUnstagedFiles());
    if (files_->displayMode() == ChangesDisplayMode::tree)
        view_->expandAll();
    restoreSelection();
    retranslate();
}

void ChangesFileSection::showMode() {
    files_->setDisplayMode(model_.displayMode());
    view_->setRootIsDecorated(model_.displayMode() == ChangesDisplayMode::tree);
    showFiles();
}

// A reset of the item model drops the view's selection; the model's selection puts it back.
void ChangesFileSection::restoreSelection() {
    const auto& ids = model_.selectedIDs();
    QItemSelection selection;
    if (!ids.empty())
        forEachFileRow(*files_, {}, [&](const QModelIndex& index, const FileChange& file) {
            if (ids.contains(rowID(file, staged_)))
                selection.select(index, index);
        });
    restoring_ = true;
    view_->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    restoring_ = false;
}

void ChangesFileSection::selectionEdited() {
    if (restoring_)
        return;
    std::vector<FileChange> selected;
    for (const QModelIndex& index : view_->selectionModel()->selectedIndexes())
        if (const FileChange* file = files_->file(index))
            selected.push_back(*file);
    restoring_ = true;
    model_.setSelectedFiles(staged_, selected);
    restoring_ = false;
}

void ChangesFileSection::runListAction() {
    const bool hasSelection = !model_.selectedFiles(staged_).empty();
    if (staged_)
        hasSelection ? model_.unstageSelected() : model_.unstageAll();
    else
        hasSelection ? model_.stageSelected() : model_.stageAll();
}

void ChangesFileSection::openMenu(const QPoint& position) {
    const QModelIndex index = view_->indexAt(position);
    const FileChange* file = files_->file(index);
    if (!file)
        return;
    // The row under the pointer joins the selection, as a right click in a file manager does.
    if (!view_->selectionModel()->isSelected(index))
        view_->selectionModel()->select(index, QItemSelectionModel::ClearAndSelect);
    showChangesFileMenu(model_, *file, staged_, this, view_->viewport()->mapToGlobal(position));
}

void ChangesFileSection::moveToOtherList(const FileChange& file) {
    const bool many = model_.selectedFiles(staged_).size() > 1;
    if (staged_)
        many ? model_.unstageSelected() : model_.unstageFile(file);
    else
        many ? model_.stageSelected() : model_.stageFile(file);
}

bool ChangesFileSection::eventFilter(QObject* watched, QEvent* event) {
    // Space or Enter stages or unstages the current file; the menu key opens the row's menu.
    if (watched == view_ && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const FileChange* file = files_->file(view_->currentIndex());
        if (file &&
            (key->key() == Qt::Key_Space || key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter)) {
            moveToOtherList(*file);
            return true;
        }
        if (file && key->key() == Qt::Key_Menu) {
            openMenu(view_->visualRect(view_->currentIndex()).center());
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void ChangesFileSection::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void ChangesFileSection::retranslate() {
    const int count = static_cast<int>((staged_ ? model_.stagedFiles() : model_.unstagedFiles()).size());
    title_->setText(staged_ ? localized("Staged (%1)", count) : localized("Unstaged (%1)", count));
    const int selected = static_cast<int>(model_.selectedFiles(staged_).size());
    if (staged_)
        listAction_->setText(selected > 0 ? localized("Unstage Selected (%1)", selected)
                                          : localized("Unstage All"));
    else
        listAction_->setText(selected > 0 ? localized("Stage Selected (%1)", selected)
                                          : localized("Stage All"));
    listAction_->setEnabled(count > 0);
    listAction_->setAccessibleName(listAction_->text());
    view_->setAccessibleName(staged_ ? localized("Staged files") : localized("Unstaged files"));
}

} // namespace orvel
