// The dialog that shows git's question for a username, a password or a key's passphrase, modal to
// its window, while the credential manager waits for an answer. A question about a secret hides
// what is typed unless the user reveals it. Questions from several tabs come one at a time: the
// manager serves the next only after this one is answered. Nothing typed is logged or kept.
#pragma once

#include "widgets/OSheet.h"

class QLabel;
class QLineEdit;
class QToolButton;

namespace orvel {

class CredentialManager;

class CredentialDialog final : public OSheet {
    Q_OBJECT

  public:
    CredentialDialog(CredentialManager& manager, QWidget* parent);

    // Whether a question's text asks for a secret: "password", "passphrase", "pin", "secret" or
    // "token" anywhere in it, inside words too.
    static bool asksForSecret(const QString& question);

    void done(int result) override;

  protected:
    void retranslate() override;

  private:
    void showQuestion();
    void showShowing(bool showing);

    CredentialManager& manager_;
    QLabel* fieldLabel_;
    QLineEdit* input_;
    QToolButton* reveal_;
};

} // namespace orvel
