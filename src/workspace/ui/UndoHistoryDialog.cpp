#include "workspace/ui/UndoHistoryDialog.h"

#include "settings/LocalizationManager.h"
#include "workspace/UndoViewModel.h"
#include "workspace/ui/UndoMenu.h"

#include <QDateTime>
#include <QDialogButtonBox>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace orvel {

UndoHistoryDialog::UndoHistoryDialog(UndoViewModel& model, QWidget* parent)
    : QDialog(parent), model_(model), list_(new QListWidget(this)) {
    setObjectName(QStringLiteral("undo-history"));
    setWindowTitle(localized("Undo History"));
    list_->setObjectName(QStringLiteral("undo-history.list"));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    undo_ = buttons->addButton(localized("Undo…"), QDialogButtonBox::ActionRole);
    undo_->setObjectName(QStringLiteral("undo-history.undo"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(list_);
    layout->addWidget(buttons);
    resize(520, 360);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(undo_, &QPushButton::clicked, this, &UndoHistoryDialog::undoChosen);
    connect(list_, &QListWidget::itemDoubleClicked, this, &UndoHistoryDialog::undoChosen);
    connect(list_, &QListWidget::currentRowChanged, this, [this](int row) { undo_->setEnabled(row >= 0); });
    connect(&model_, &UndoViewModel::entriesChanged, this, &UndoHistoryDialog::showEntries);
    showEntries();
}

void UndoHistoryDialog::showEntries() {
    list_->clear();
    for (const UndoEntry& entry : model_.entries()) {
        const QString when = QDateTime::fromSecsSinceEpoch(entry.time).toString(QStringLiteral("yyyy-MM-dd HH:mm"));
        list_->addItem(QStringLiteral("%1 \u2014 %2").arg(when, UndoViewModel::describe(entry)));
    }
    if (list_->count() > 0)
        list_->setCurrentRow(0);
    undo_->setEnabled(list_->currentRow() >= 0);
}

void UndoHistoryDialog::undoChosen() {
    const int row = list_->currentRow();
    if (row < 0 || static_cast<std::size_t>(row) >= model_.entries().size())
        return;
    askToUndo(this, model_, model_.entries()[static_cast<std::size_t>(row)]);
}

} // namespace orvel
