// The warning after Apply that the signing key's e-mail address isn't git's user.email. "Update
// Email" makes the key's address git's, through the signing model; "Edit Manually" leaves both as
// they are and the window open.
#pragma once

#include "settings/IdentityMismatch.h"

#include <functional>

class QMessageBox;
class QWidget;

namespace orvel {

class SigningSettingsViewModel;

// `updated` runs once the address is written, so that the window can close; a failed write shows
// as the model's error instead.
QMessageBox* showIdentityMismatchAlert(QWidget* parent, SigningSettingsViewModel& model,
                                       const IdentityMismatch& mismatch, std::function<void()> updated);

} // namespace orvel
