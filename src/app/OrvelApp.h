// Brings the application up in its fixed order: theme and language from the stored settings,
// credential prompts, executor, git service, application model (which opens the repository named
// by ORVEL_AUTOTEST_OPEN_REPO, if any), and the stored appearance.
#pragma once

#include <memory>

namespace orvel {

class TerminationSignals;

class AppViewModel;
class CredentialManager;
class GitOpRunner;
class NativeGitConfigService;
class NativeGitService;
struct SettingsPageModels;
class SubprocessExecutor;
class UserDefaults;

class OrvelApp {
  public:
    OrvelApp();
    // Closing the last window ends the program at once, with git still running or queued.
    ~OrvelApp();

    AppViewModel& appViewModel() { return *appViewModel_; }
    NativeGitService& gitService() { return *service_; }
    CredentialManager& credentialManager() { return *credentialManager_; }
    UserDefaults& defaults() { return *defaults_; }
    SettingsPageModels& settingsPages() { return *settingsPages_; }

  private:
    std::unique_ptr<TerminationSignals> terminationSignals_;
    std::unique_ptr<UserDefaults> defaults_;
    std::unique_ptr<CredentialManager> credentialManager_;
    std::shared_ptr<SubprocessExecutor> executor_;
    std::shared_ptr<NativeGitService> service_;
    std::shared_ptr<NativeGitConfigService> config_;
    std::unique_ptr<SettingsPageModels> settingsPages_;
    std::unique_ptr<AppViewModel> appViewModel_;
};

} // namespace orvel
