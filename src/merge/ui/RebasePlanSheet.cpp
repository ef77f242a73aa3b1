#include "merge/ui/RebasePlanSheet.h"

#include "merge/InteractiveRebaseViewModel.h"
#include "merge/ui/RebasePlanDelegate.h"
#include "merge/ui/RebasePlanItemModel.h"
#include "merge/ui/RewordMessageDialog.h"
#include "settings/LocalizationManager.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTreeView>

#include <algorithm>
#include <array>
#include <utility>

namespace orvel {

namespace {

QPushButton* toolButton(QWidget* parent, const char* objectName) {
    auto* made = new QPushButton(parent);
    made->setObjectName(QString::fromLatin1(objectName));
    made->setAutoDefault(false);
    return made;
}

// Letters that set the current row's action, as in git's own todo list.
constexpr std::array<std::pair<int, RebaseAction>, 6> actionKeys{{{Qt::Key_P, RebaseAction::pick},
                                                                  {Qt::Key_R, RebaseAction::reword},
                                                                  {Qt::Key_E, RebaseAction::edit},
                                                                  {Qt::Key_S, RebaseAction::squash},
                                                                  {Qt::Key_F, RebaseAction::fixup},
                                                                  {Qt::Key_D, RebaseAction::drop}}};

} // namespace

RebasePlanSheet::RebasePlanSheet(RepoEntry repo, std::string onto,
                                 std::shared_ptr<GitServiceProtocol> service, ToastManager& toasts,
                                 QWidget* parent)
    : OSheet(parent), model_(new InteractiveRebaseViewModel(std::move(repo), std::move(onto),
                                                            std::move(service), toasts, this)),
      subtitle_(new QLabel(this)), forecast_(new QLabel(this)), list_(new QTreeView(this)),
      moveUp_(toolButton(this, "rebase-sheet.move-up")),
      moveDown_(toolButton(this, "rebase-sheet.move-down")),
      editMessage_(toolButton(this, "rebase-sheet.edit-message")),
      addExec_(toolButton(this, "rebase-sheet.add-exec")),
      removeExec_(toolButton(this, "rebase-sheet.remove-exec")),
      autosquash_(toolButton(this, "rebase-sheet.autosquash")) {
    setObjectName(QStringLiteral("rebase-sheet"));
    setAttribute(Qt::WA_DeleteOnClose);
    subtitle_->setTextFormat(Qt::PlainText);
    list_->setObjectName(QStringLiteral("rebase-sheet.commit-list"));
    list_->setRootIsDecorated(false);
    list_->setUniformRowHeights(true);
    list_->setAllColumnsShowFocus(true);
    list_->setSelectionMode(QAbstractItemView::SingleSelection);
    list_->setDragDropMode(QAbstractItemView::DragDrop);
    list_->setDefaultDropAction(Qt::MoveAction);
    list_->setDragDropOverwriteMode(false);
    list_->setDropIndicatorShown(true);
    list_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    auto* delegate = new RebasePlanDelegate(list_);
    list_->setItemDelegate(delegate);
    list_->installEventFilter(this);
    cancelButton()->setObjectName(QStringLiteral("rebase-sheet.cancel"));
    acceptButton()->setObjectName(QStringLiteral("rebase-sheet.start"));

    auto* tools = new QHBoxLayout;
    for (QPushButton* tool : {moveUp_, moveDown_, editMessage_, addExec_, removeExec_})
        tools->addWidget(tool);
    tools->addStretch(1);
    tools->addWidget(autosquash_);
    contentLayout()->addWidget(subtitle_);
    contentLayout()->addWidget(list_, 1);
    contentLayout()->addLayout(tools);
    forecast_->setObjectName(QStringLiteral("rebase-sheet.conflict-preview"));
    forecast_->setTextFormat(Qt::PlainText);
    contentLayout()->addWidget(forecast_);

    connect(delegate, &RebasePlanDelegate::rewordRequested, this, &RebasePlanSheet::editMessage);
    connect(moveUp_, &QPushButton::clicked, this, [this] { moveCurrent(-1); });
    connect(moveDown_, &QPushButton::clicked, this, [this] { moveCurrent(1); });
    connect(editMessage_, &QPushButton::clicked, this, [this] { editMessage(currentRow()); });
    connect(addExec_, &QPushButton::clicked, this, [this] {
        rows_->addExec();
        const QModelIndex added = rows_->index(rows_->rowCount() - 1, RebasePlanItemModel::SubjectColumn);
        list_->setCurrentIndex(added);
        list_->edit(added);
    });
    connect(removeExec_, &QPushButton::clicked, this, [this] { rows_->removeExec(currentRow()); });
    connect(autosquash_, &QPushButton::clicked, this, [this] { rows_->autosquash(); });
    connect(acceptButton(), &QPushButton::clicked, model_, [this] { model_->start(); });
    connect(model_, &InteractiveRebaseViewModel::planReady, this, &RebasePlanSheet::showPlan);
    connect(model_, &InteractiveRebaseViewModel::runningChanged, this, &RebasePlanSheet::showState);
    connect(model_, &InteractiveRebaseViewModel::closed, this, &QObject::deleteLater);
    connect(model_, &InteractiveRebaseViewModel::finished, this, [this] {
        emit rebaseEnded();
        accept();
    });
    retranslate();
}

void RebasePlanSheet::showPlan() {
    rows_ = new RebasePlanItemModel(*model_->plan(), this);
    rows_->showPredictionsOf(*model_);
    list_->setModel(rows_);
    list_->header()->setSectionResizeMode(RebasePlanItemModel::ActionColumn, QHeaderView::ResizeToContents);
    list_->header()->setSectionResizeMode(RebasePlanItemModel::CommitColumn, QHeaderView::ResizeToContents);
    list_->header()->setStretchLastSection(true);
    list_->setCurrentIndex(rows_->index(0, 0));
    // Room for the plan and a few added rows, within reason; the sheet fits around it.
    const int rows = std::clamp(rows_->rowCount() + 3, 6, 16);
    list_->setMinimumHeight(rows * (list_->fontMetrics().height() + 6) +
                            list_->header()->sizeHint().height());
    resize(760, sizeHint().height());
    connect(rows_, &RebasePlanItemModel::planChanged, this, &RebasePlanSheet::showState);
    connect(rows_, &RebasePlanItemModel::planChanged, model_, [this] { model_->predict(); });
    connect(model_, &InteractiveRebaseViewModel::predictionsChanged, this, &RebasePlanSheet::showState);
    connect(list_->selectionModel(), &QItemSelectionModel::currentChanged, this, &RebasePlanSheet::showState);
    retranslate();
    open();
    list_->setFocus();
}

void RebasePlanSheet::retranslate() {
    setWindowTitle(localized("Interactive Rebase"));
    caption()->setText(localized("Interactive Rebase"));
    const int commits = rows_ ? static_cast<int>(model_->plan()->initialEntries().size()) : 0;
    subtitle_->setText(localized("Rebase onto \"%1\" (%2 commits)", model_->onto(), commits));
    list_->setAccessibleName(localized("Commits to rebase, oldest first"));
    moveUp_->setText(localized("Move Up"));
    moveUp_->setAccessibleName(localized("Move the step up (Ctrl+Up)"));
    moveDown_->setText(localized("Move Down"));
    moveDown_->setAccessibleName(localized("Move the step down (Ctrl+Down)"));
    editMessage_->setText(localized("Edit Message"));
    editMessage_->setToolTip(localized("Edit commit message"));
    editMessage_->setAccessibleName(localized("Edit commit message"));
    addExec_->setText(localized("Add Exec"));
    addExec_->setToolTip(localized("Add a shell command to run between steps"));
    addExec_->setAccessibleName(localized("Add a shell command to run between steps"));
    removeExec_->setText(localized("Remove Exec"));
    removeExec_->setToolTip(localized("Remove exec step"));
    removeExec_->setAccessibleName(localized("Remove exec step"));
    autosquash_->setText(localized("Autosquash"));
    autosquash_->setToolTip(localized("Rearrange fixup!/squash! commits next to their targets"));
    autosquash_->setAccessibleName(localized("Autosquash fixup and squash commits"));
    cancelButton()->setText(localized("Cancel"));
    cancelButton()->setAccessibleName(localized("Cancel rebase"));
    acceptButton()->setText(localized("Start Rebase"));
    acceptButton()->setAccessibleName(localized("Start interactive rebase"));
    showState();
}

void RebasePlanSheet::showState() {
    const bool editable = rows_ && !model_->isRunning();
    const RebaseTodoEntry* current = rows_ ? rows_->entry(currentRow()) : nullptr;
    const bool isExec = current && isExecStep(*current);
    list_->setEnabled(editable);
    forecast_->setText(model_->predictionStatus());
    forecast_->setVisible(!forecast_->text().isEmpty());
    moveUp_->setEnabled(editable && current && currentRow() > 0);
    moveDown_->setEnabled(editable && current && currentRow() + 1 < rows_->rowCount());
    editMessage_->setEnabled(editable && current && !isExec);
    removeExec_->setEnabled(editable && isExec);
    addExec_->setEnabled(editable);
    autosquash_->setEnabled(editable);
    acceptButton()->setEnabled(editable && model_->plan()->canStart());
    if (current && !isExec)
        editMessage_->setAccessibleName(localized("Edit message for commit %1", current->hash));
}

int RebasePlanSheet::currentRow() const {
    return list_->currentIndex().isValid() ? list_->currentIndex().row() : -1;
}

void RebasePlanSheet::moveCurrent(int offset) {
    const int row = currentRow();
    const QModelIndex current = list_->currentIndex();
    if (rows_ && rows_->moveEntry(row, row + offset))
        list_->setCurrentIndex(rows_->index(row + offset, current.column()));
}

void RebasePlanSheet::editMessage(int row) {
    const RebaseTodoEntry* entry = rows_ ? rows_->entry(row) : nullptr;
    if (!entry || isExecStep(*entry))
        return;
    rows_->beginReword(row);
    const std::string& text = model_->plan()->rewordText();
    auto* dialog =
        new RewordMessageDialog(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::finished, this, [this, dialog](int result) {
        if (result == QDialog::Accepted)
            rows_->saveReword(dialog->message().toStdString());
        else
            model_->plan()->cancelReword();
    });
    dialog->open();
}

bool RebasePlanSheet::eventFilter(QObject* watched, QEvent* event) {
    if (watched != list_ || event->type() != QEvent::KeyPress || !rows_)
        return OSheet::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->modifiers() == Qt::ControlModifier && (key->key() == Qt::Key_Up || key->key() == Qt::Key_Down)) {
        moveCurrent(key->key() == Qt::Key_Up ? -1 : 1);
        return true;
    }
    const RebaseTodoEntry* current = rows_->entry(currentRow());
    if (!current || key->modifiers() != Qt::NoModifier)
        return OSheet::eventFilter(watched, event);
    if (isExecStep(*current)) {
        if (key->key() == Qt::Key_Delete || key->key() == Qt::Key_Backspace) {
            rows_->removeExec(currentRow());
            return true;
        }
        return OSheet::eventFilter(watched, event);
    }
    for (const auto& [letter, action] : actionKeys)
        if (key->key() == letter) {
            if (action == RebaseAction::reword)
                editMessage(currentRow());
            else
                rows_->setAction(currentRow(), action);
            return true;
        }
    return OSheet::eventFilter(watched, event);
}

} // namespace orvel
