// The signing settings over the real tools: a throw-away GnuPG home, an SSH key folder of the test's
// own and a private global git configuration, so that nothing of the machine's is read or changed.
#pragma once

#include "core/process/ChildProcess.h"
#include "core/process/SubprocessExecutor.h"
#include "core/support/UserDefaults.h"
#include "settings/SigningKeyService.h"
#include "settings/SigningSettingsViewModel.h"
#include "support/Await.h"
#include "support/Eventually.h"
#include "support/GitFixture.h"
#include "support/ScopedEnvironment.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include <unistd.h>

namespace orvel::test {

// The first gpg that the key service would run, or empty when the machine has none.
inline std::string installedGpg() {
    for (const std::string& path : SigningKeyService::defaultGpgPrograms()) {
        if (::access(path.c_str(), X_OK) == 0)
            return path;
    }
    return {};
}

inline ChildOutcome runTool(const std::string& program, std::vector<std::string> arguments) {
    ChildRequest request;
    request.executable = program;
    request.arguments = std::move(arguments);
    request.environment = inheritedEnvironment();
    request.stdoutCapture = StreamCapture::capture(1u << 20);
    request.stderrCapture = StreamCapture::capture(1u << 20);
    return runChild(request);
}

class SigningOnRealTools : public ::testing::Test {
  protected:
    SigningOnRealTools() {
        std::filesystem::permissions(gnupgHome.path(), std::filesystem::perms::owner_all,
                                     std::filesystem::perm_options::replace);
        writeFile(configPath(), "[user]\n\temail = test@orvel.invalid\n");
    }
    ~SigningOnRealTools() override {
        if (!gpg.empty())
            runTool("/usr/bin/env", {"gpgconf", "--kill", "gpg-agent"});
    }

    std::string configPath() const { return configFolder / "gitconfig"; }

    // Makes a signing key with `userID` in the throw-away home; answers its long key id, taken from
    // the fingerprint that names its revocation certificate. `expiry` is a date or "never".
    std::string makeGpgKey(const std::string& userID, const std::string& expiry) {
        const ChildOutcome made = runTool(
            gpg, {"--batch", "--passphrase", "", "--quick-gen-key", userID, "ed25519", "sign", expiry});
        EXPECT_TRUE(made.succeeded()) << made.err;
        const std::string marker = "openpgp-revocs.d/";
        const std::size_t at = made.err.rfind(marker);
        EXPECT_NE(at, std::string::npos) << made.err;
        const std::string fingerprint = made.err.substr(at + marker.size(), 40);
        return fingerprint.substr(24);
    }

    // An SSH key pair made by ssh-keygen where there is one, else a public key file written here.
    void makeSshKey(const std::string& name) {
        const std::string path = sshFolder / name;
        if (::access("/usr/bin/ssh-keygen", X_OK) == 0) {
            const ChildOutcome made = runTool("/usr/bin/ssh-keygen", {"-q", "-t", "ed25519", "-N", "", "-C",
                                                                      "signer@orvel.invalid", "-f", path});
            EXPECT_TRUE(made.succeeded()) << made.err;
            return;
        }
        writeFile(path + ".pub", "ssh-ed25519 AAAAC3NzaC1lZDI1NTE5AAAAIE signer@orvel.invalid\n");
    }

    std::optional<std::string> stored(const std::string& key) const {
        const GitRun run = gitAllowingFailure(configFolder.path(), {"config", "--global", key});
        if (run.exitCode != 0)
            return std::nullopt;
        return run.out.substr(0, run.out.find_last_not_of('\n') + 1);
    }

    std::unique_ptr<SigningSettingsViewModel> loadedModel() {
        auto model = std::make_unique<SigningSettingsViewModel>(executor, keys, defaults);
        await(model->load());
        EXPECT_TRUE(eventually([&] { return !model->isDetectingKeys(); }));
        return model;
    }

    TempDir gnupgHome;
    TempDir sshFolder;
    TempDir configFolder;
    ScopedEnvironment gnupgHomeVariable{"GNUPGHOME", gnupgHome.path()};
    ScopedEnvironment globalConfig{"GIT_CONFIG_GLOBAL", configPath()};
    std::string gpg = installedGpg();
    InMemoryUserDefaults defaults;
    std::shared_ptr<SubprocessExecutor> executor =
        std::make_shared<SubprocessExecutor>(std::nullopt, defaults);
    std::shared_ptr<SigningKeyService> keys = std::make_shared<SigningKeyService>(
        SigningKeyService::defaultGpgPrograms(), QString::fromStdString(sshFolder.path()));
};

} // namespace orvel::test
