#include "workspace/ui/CredentialDialog.h"

#include "settings/LocalizationManager.h"
#include "workspace/CredentialManager.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace orvel {

CredentialDialog::CredentialDialog(CredentialManager& manager, QWidget* parent)
    : QDialog(parent), manager_(manager), message_(new QLabel(this)), fieldLabel_(new QLabel(this)),
      input_(new QLineEdit(this)), reveal_(new QToolButton(this)), cancel_(new QPushButton(this)),
      submit_(new QPushButton(this)) {
    setObjectName(QStringLiteral("credential-dialog"));
    setWindowModality(Qt::WindowModal);
    setMinimumWidth(440);
    message_->setObjectName(QStringLiteral("credential.message"));
    message_->setWordWrap(true);
    message_->setTextFormat(Qt::PlainText);
    QFont bold = message_->font();
    bold.setBold(true);
    message_->setFont(bold);
    fieldLabel_->setBuddy(input_);
    input_->setObjectName(QStringLiteral("credential.input"));
    reveal_->setObjectName(QStringLiteral("credential.reveal"));
    reveal_->setCheckable(true);
    cancel_->setObjectName(QStringLiteral("credential.cancel"));
    cancel_->setAutoDefault(false);
    submit_->setObjectName(QStringLiteral("credential.submit"));
    submit_->setDefault(true);

    auto* field = new QHBoxLayout;
    field->addWidget(fieldLabel_);
    field->addWidget(input_, 1);
    field->addWidget(reveal_);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cancel_);
    buttons->addWidget(submit_);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(message_);
    layout->addLayout(field);
    layout->addLayout(buttons);

    connect(input_, &QLineEdit::textEdited, &manager_, &CredentialManager::setUserInput);
    connect(&manager_, &CredentialManager::userInputChanged, input_, [this](const QString& text) {
        if (input_->text() != text)
            input_->setText(text);
    });
    connect(reveal_, &QToolButton::toggled, this, &CredentialDialog::showQuestion);
    connect(cancel_, &QPushButton::clicked, this, &QDialog::reject);
    connect(submit_, &QPushButton::clicked, this, &QDialog::accept);
    // A new question never starts revealed.
    connect(&manager_, &CredentialManager::promptMessageChanged, this, [this] {
        reveal_->setChecked(false);
        showQuestion();
    });
    connect(&manager_, &CredentialManager::isShowingPromptChanged, this, &CredentialDialog::showShowing);
    retranslate();
    showShowing(manager_.isShowingPrompt());
}

bool CredentialDialog::asksForSecret(const QString& question) {
    const QString lower = question.toLower();
    for (const char* word : {"password", "passphrase", "pin", "secret", "token"})
        if (lower.contains(QLatin1String(word)))
            return true;
    return false;
}

void CredentialDialog::showShowing(bool showing) {
    if (!showing) {
        hide();
        return;
    }
    reveal_->setChecked(false);
    showQuestion();
    if (!isVisible())
        open();
    input_->setFocus();
}

void CredentialDialog::showQuestion() {
    const bool secret = asksForSecret(manager_.promptMessage());
    message_->setText(manager_.promptMessage());
    fieldLabel_->setVisible(secret);
    reveal_->setVisible(secret);
    input_->setEchoMode(secret && !reveal_->isChecked() ? QLineEdit::Password : QLineEdit::Normal);
    input_->setPlaceholderText(secret ? localized("Enter password") : localized("Enter value"));
    reveal_->setText(reveal_->isChecked() ? localized("Hide") : localized("Show"));
    reveal_->setToolTip(reveal_->isChecked() ? localized("Hide password") : localized("Reveal password"));
    reveal_->setAccessibleName(reveal_->toolTip());
}

void CredentialDialog::done(int result) {
    // Closing the dialog in any way answers the question, so git never waits on a hidden one.
    if (manager_.isShowingPrompt()) {
        if (result == QDialog::Accepted)
            manager_.submitCredential();
        else
            manager_.cancelCredential();
    }
    input_->clear();
    QDialog::done(result);
}

void CredentialDialog::retranslate() {
    setWindowTitle(localized("Git Credential Request"));
    fieldLabel_->setText(localized("Password"));
    input_->setAccessibleName(localized("Credential input field"));
    cancel_->setText(localized("Cancel"));
    cancel_->setAccessibleName(localized("Cancel credential request"));
    submit_->setText(localized("Submit"));
    submit_->setAccessibleName(localized("Submit credential"));
    showQuestion();
}

void CredentialDialog::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QDialog::changeEvent(event);
}

} // namespace orvel
