#include "workspace/ui/CredentialDialog.h"

#include "settings/LocalizationManager.h"
#include "workspace/CredentialManager.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

namespace orvel {

CredentialDialog::CredentialDialog(CredentialManager& manager, QWidget* parent)
    : OSheet(parent), manager_(manager), fieldLabel_(new QLabel(this)), input_(new QLineEdit(this)),
      reveal_(new QToolButton(this)) {
    setObjectName(QStringLiteral("credential-dialog"));
    setMinimumWidth(440);
    caption()->setObjectName(QStringLiteral("credential.message"));
    caption()->setWordWrap(true);
    caption()->setTextFormat(Qt::PlainText);
    fieldLabel_->setBuddy(input_);
    input_->setObjectName(QStringLiteral("credential.input"));
    reveal_->setObjectName(QStringLiteral("credential.reveal"));
    reveal_->setCheckable(true);
    cancelButton()->setObjectName(QStringLiteral("credential.cancel"));
    acceptButton()->setObjectName(QStringLiteral("credential.submit"));
    auto* field = new QHBoxLayout;
    field->addWidget(fieldLabel_);
    field->addWidget(input_, 1);
    field->addWidget(reveal_);
    contentLayout()->addLayout(field);

    connect(input_, &QLineEdit::textEdited, &manager_, &CredentialManager::setUserInput);
    connect(&manager_, &CredentialManager::userInputChanged, input_, [this](const QString& text) {
        if (input_->text() != text)
            input_->setText(text);
    });
    connect(reveal_, &QToolButton::toggled, this, &CredentialDialog::showQuestion);
    connect(acceptButton(), &QPushButton::clicked, this, &QDialog::accept);
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
    caption()->setText(manager_.promptMessage());
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
    OSheet::done(result);
}

void CredentialDialog::retranslate() {
    setWindowTitle(localized("Git Credential Request"));
    fieldLabel_->setText(localized("Password"));
    input_->setAccessibleName(localized("Credential input field"));
    cancelButton()->setText(localized("Cancel"));
    cancelButton()->setAccessibleName(localized("Cancel credential request"));
    acceptButton()->setText(localized("Submit"));
    acceptButton()->setAccessibleName(localized("Submit credential"));
    showQuestion();
}

} // namespace orvel
