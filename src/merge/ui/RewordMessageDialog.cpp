#include "merge/ui/RewordMessageDialog.h"

#include "settings/LocalizationManager.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace orvel {

RewordMessageDialog::RewordMessageDialog(const QString& message, QWidget* parent)
    : QDialog(parent), label_(new QLabel(this)), text_(new QPlainTextEdit(message, this)),
      cancel_(new QPushButton(this)), save_(new QPushButton(this)) {
    setObjectName(QStringLiteral("rebase-sheet.reword"));
    setWindowModality(Qt::WindowModal);
    setMinimumSize(480, 260);
    text_->setObjectName(QStringLiteral("rebase-sheet.reword-text"));
    text_->setTabChangesFocus(true);
    label_->setBuddy(text_);
    cancel_->setAutoDefault(false);
    save_->setObjectName(QStringLiteral("rebase-sheet.reword-save"));
    save_->setDefault(true);
    // Ctrl+Return saves from inside the field, where Return starts a new line.
    save_->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Return));

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cancel_);
    buttons->addWidget(save_);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label_);
    layout->addWidget(text_, 1);
    layout->addLayout(buttons);

    connect(cancel_, &QPushButton::clicked, this, &QDialog::reject);
    connect(save_, &QPushButton::clicked, this, &QDialog::accept);
    retranslate();
    text_->setFocus();
    text_->selectAll();
}

QString RewordMessageDialog::message() const {
    return text_->toPlainText();
}

void RewordMessageDialog::retranslate() {
    setWindowTitle(localized("Edit Commit Message"));
    label_->setText(localized("New commit message"));
    text_->setAccessibleName(localized("New commit message"));
    cancel_->setText(localized("Cancel"));
    cancel_->setAccessibleName(localized("Cancel editing message"));
    save_->setText(localized("Save"));
    save_->setAccessibleName(localized("Save new message"));
}

void RewordMessageDialog::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

} // namespace orvel
