// The models behind the settings window's Appearance, Git and Signing tabs. The program makes them
// once, with its git, and keeps them for its whole run; the window, made when it first opens, only
// shows them.
#pragma once

#include "settings/AppearanceSettingsPage.h"
#include "settings/GitSettingsViewModel.h"
#include "settings/SigningSettingsViewModel.h"

#include <memory>

namespace orvel {

class GitConfigProtocol;
class GitExecutorProtocol;
class UserDefaults;

struct SettingsPageModels {
    SettingsPageModels(std::shared_ptr<GitExecutorProtocol> executor, std::shared_ptr<GitConfigProtocol> config,
                       UserDefaults& defaults);

    AppearanceSettingsPage appearance;
    GitSettingsViewModel git;
    SigningSettingsViewModel signing;
};

} // namespace orvel
