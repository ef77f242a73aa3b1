#include "settings/ui/IdentityMismatchAlert.h"

#include "settings/LocalizationManager.h"
#include "settings/SigningSettingsViewModel.h"
#include "widgets/OAlert.h"

#include <QPointer>

namespace orvel {

QMessageBox* showIdentityMismatchAlert(QWidget* parent, SigningSettingsViewModel& model,
                                       const IdentityMismatch& mismatch, std::function<void()> updated) {
    const QString message =
        localized("Your git email (%1) does not match the signing key email (%2). Commits may appear "
                  "unverified on GitHub.\n\n\"Update Email\" will set your git email to %2.",
                  mismatch.currentEmail, mismatch.keyEmail);
    QPointer<SigningSettingsViewModel> target(&model);
    const QString keyEmail = mismatch.keyEmail;
    return showAlert(parent, QMessageBox::Warning, localized("Signing Identity Mismatch"), message,
                     {{localized("Update Email"), QMessageBox::AcceptRole},
                      {localized("Edit Manually"), QMessageBox::RejectRole}},
                     1, [target, keyEmail, updated = std::move(updated)](int chosen) {
                         if (chosen != 0 || !target)
                             return;
                         [](QPointer<SigningSettingsViewModel> model, QCoro::Task<bool> writing,
                            std::function<void()> done) -> QCoro::Task<void> {
                             if (co_await std::move(writing) && model)
                                 done();
                         }(target, target->syncIdentity(keyEmail), updated);
                     });
}

} // namespace orvel
