#include "settings/SettingsPageModels.h"

#include "settings/ProcessGitBinaryProber.h"
#include "settings/SigningKeyService.h"
#include "settings/ThemeEngine.h"

namespace orvel {

SettingsPageModels::SettingsPageModels(std::shared_ptr<GitExecutorProtocol> executor,
                                       std::shared_ptr<GitConfigProtocol> config, UserDefaults& defaults)
    : appearance(ThemeEngine::shared()),
      git(std::move(config), std::make_shared<ProcessGitBinaryProber>(), defaults, executor),
      signing(executor, std::make_shared<SigningKeyService>(), defaults) {}

} // namespace orvel
