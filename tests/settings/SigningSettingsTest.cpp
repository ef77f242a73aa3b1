// The signing settings over real gpg, ssh-keygen and git: the keys found on the machine, the global
// configuration read into the form and written back on Apply, Cancel, a failed Apply, and the
// identity check after Apply.
#include "SigningOnRealTools.h"

#include "settings/IdentityMismatch.h"
#include "support/RecordingExecutor.h"

#include <filesystem>

using namespace orvel;
using namespace orvel::test;

namespace {

using Snapshot = SigningSettingsViewModel::Snapshot;

class SigningSettingsTest : public SigningOnRealTools {};

TEST_F(SigningSettingsTest, FindsGpgSecretKeysThroughTheFirstGpgThatListsAnyAndPublicKeysOfTheSshFolder) {
    if (gpg.empty())
        GTEST_SKIP() << "gpg is not installed";
    const std::string expiring = makeGpgKey("Signer Name (work) <signer@orvel.invalid>", "2030-01-01");
    const std::string lasting = makeGpgKey("Colon: Name <colon@orvel.invalid>", "never");

    for (const std::vector<std::string>& programs :
         {SigningKeyService::defaultGpgPrograms(), {"/nonexistent/gpg", "/bin/false", gpg}}) {
        const std::vector<SigningKeyEntry> found = SigningKeyService(programs, {}).detectGPGKeys();
        ASSERT_EQ(found.size(), 2u);
        EXPECT_EQ(found[0].keyID.toStdString(), expiring);
        EXPECT_EQ(found[0].id, found[0].keyID);
        EXPECT_EQ(found[0].label, QStringLiteral("Signer Name (work) <signer@orvel.invalid>"));
        EXPECT_EQ(found[0].type, SigningFormat::gpg);
        ASSERT_TRUE(found[0].expires);
        EXPECT_TRUE(found[0].expires->contains(QStringLiteral("2030"))) << found[0].expires->toStdString();
        EXPECT_EQ(found[1].keyID.toStdString(), lasting);
        EXPECT_EQ(found[1].label, QStringLiteral("Colon: Name <colon@orvel.invalid>"));
        EXPECT_FALSE(found[1].expires);
    }
    EXPECT_TRUE(SigningKeyService({"/bin/false", "/nonexistent/gpg"}, {}).detectGPGKeys().empty());

    makeSshKey("id_ed25519");
    writeFile(sshFolder / "work.pub", "ssh-rsa AAAA work\n");
    writeFile(sshFolder / "notes.txt", "not a key\n");
    std::filesystem::create_directory(sshFolder / "old.pub");
    const std::vector<SigningKeyEntry> ssh = keys->detectSSHKeys();
    ASSERT_EQ(ssh.size(), 2u);
    EXPECT_EQ(ssh[0], (SigningKeyEntry{QString::fromStdString(sshFolder / "id_ed25519.pub"), "id_ed25519",
                                       QString::fromStdString(sshFolder / "id_ed25519.pub"),
                                       SigningFormat::ssh, std::nullopt}));
    EXPECT_EQ(ssh[1].label, QStringLiteral("work"));
    EXPECT_THROW(SigningKeyService({}, QString::fromStdString(sshFolder / "missing")).detectSSHKeys(),
                 std::filesystem::filesystem_error);
}

struct LoadCase {
    const char* name;
    std::string config;
    QVariantMap storedDefaults;
    Snapshot expected;
    QString gpgKeyDefaultAfter;
};

TEST_F(SigningSettingsTest, LoadReadsTheFormatTogglesAndKeyOfTheFormatInForceAndTheOtherKeyFromTheDefaults) {
    const std::vector<LoadCase> cases = {
        {"nothing set", "", {}, {}, ""},
        {"ssh in force",
         "[gpg]\n\tformat = ssh\n\tprogram = /opt/gpg\n[gpg \"ssh\"]\n\tallowedSignersFile = /s/allowed\n"
         "[user]\n\tsigningkey = /k/id.pub\n[commit]\n\tgpgsign = true\n[tag]\n\tgpgsign = TRUE\n",
         {{"gpgSigningKey", "ABC123"}},
         {SigningFormat::ssh, "/opt/gpg", "ABC123", "/k/id.pub", "/s/allowed", true, false},
         "ABC123"},
        {"an unknown format is gpg",
         "[gpg]\n\tformat = x509\n[user]\n\tsigningkey = ABC123\n[commit]\n\tgpgsign = yes\n",
         {{"gpgSigningKey", "OLD"}, {"sshSigningKey", "/k/id.pub"}},
         {SigningFormat::gpg, "", "ABC123", "/k/id.pub", "", false, false},
         "ABC123"},
    };
    for (const LoadCase& c : cases) {
        SCOPED_TRACE(c.name);
        writeFile(configPath(), c.config);
        defaults.remove("gpgSigningKey");
        defaults.remove("sshSigningKey");
        for (auto it = c.storedDefaults.begin(); it != c.storedDefaults.end(); ++it)
            defaults.setValue(it.key(), it.value());
        const auto model = loadedModel();
        EXPECT_EQ(model->fields(), c.expected);
        EXPECT_EQ(model->original(), c.expected);
        EXPECT_FALSE(model->hasChanges());
        EXPECT_EQ(defaults.string("gpgSigningKey"), c.gpgKeyDefaultAfter);
    }
}

TEST_F(SigningSettingsTest, ApplyWritesTheGlobalConfigurationAndCancelDropsTheEdits) {
    auto model = loadedModel();
    model->setSelectedFormat(SigningFormat::ssh);
    model->setSshSigningKey(" /keys/id signing.pub ");
    model->setSshAllowedSigners("-allowed\"signers");
    model->setSignCommits(true);
    await(model->apply());
    EXPECT_EQ(model->errorMessage(), QString());
    EXPECT_FALSE(model->hasChanges());
    EXPECT_EQ(model->fields().sshSigningKey, QStringLiteral("/keys/id signing.pub"));
    EXPECT_EQ(stored("gpg.format"), "ssh");
    EXPECT_EQ(stored("user.signingkey"), "/keys/id signing.pub");
    EXPECT_EQ(stored("gpg.ssh.allowedSignersFile"), "-allowed\"signers");
    EXPECT_EQ(stored("commit.gpgsign"), "true");
    EXPECT_EQ(stored("tag.gpgsign"), "false");
    EXPECT_EQ(stored("gpg.program"), std::nullopt);

    // Switching to GPG and back keeps both keys: git holds the one in force, the defaults both.
    model->setSelectedFormat(SigningFormat::gpg);
    model->setGpgSigningKey("ABCDEF0123456789");
    model->setSshAllowedSigners("  ");
    await(model->apply());
    EXPECT_EQ(stored("gpg.format"), "openpgp");
    EXPECT_EQ(stored("user.signingkey"), "ABCDEF0123456789");
    EXPECT_EQ(stored("gpg.ssh.allowedSignersFile"), std::nullopt);
    model = loadedModel();
    EXPECT_EQ(model->fields().sshSigningKey, QStringLiteral("/keys/id signing.pub"));
    model->setSelectedFormat(SigningFormat::ssh);
    await(model->apply());
    EXPECT_EQ(stored("user.signingkey"), "/keys/id signing.pub");
    model = loadedModel();
    EXPECT_EQ(model->fields().gpgSigningKey, QStringLiteral("ABCDEF0123456789"));

    const std::string before = readFile(configPath());
    model->setSignCommits(false);
    model->setSshSigningKey("/elsewhere.pub");
    model->revert();
    EXPECT_EQ(model->fields(), model->original());
    await(model->apply());
    EXPECT_EQ(readFile(configPath()), before);
}

TEST_F(SigningSettingsTest, AFailedApplyShowsGitsErrorAndKeepsTheOriginal) {
    auto model = loadedModel();
    writeFile(configFolder / "file", "");
    ScopedEnvironment unwritable("GIT_CONFIG_GLOBAL", configFolder / "file/gitconfig");
    model->setSignCommits(true);
    model->setGpgSigningKey("ABCDEF0123456789");
    await(model->apply());
    EXPECT_TRUE(model->errorMessage().contains(QStringLiteral("config")))
        << model->errorMessage().toStdString();
    EXPECT_TRUE(model->hasChanges());
    EXPECT_FALSE(model->original().signCommits);
    EXPECT_EQ(defaults.string("gpgSigningKey"), QString());
}

// Apply runs git config with the key first and the value after it, where git reads it as data.
TEST(SigningSettingsArguments, ApplyWritesEachKeyInOrderAndErasesTheEmptyOnes) {
    auto recording = std::make_shared<RecordingExecutor>();
    InMemoryUserDefaults defaults;
    SigningSettingsViewModel model(
        recording, std::make_shared<SigningKeyService>(std::vector<std::string>{}, "/nonexistent"), defaults);
    await(model.load());
    ASSERT_TRUE(eventually([&] { return !model.isDetectingKeys(); }));
    model.setGpgSigningKey("-K");
    model.setSignTags(true);
    await(model.apply());
    using A = GitExecutorProtocol::Arguments;
    const std::vector<A> expected = {
        {"config", "--global", "gpg.format"},
        {"config", "--global", "gpg.program"},
        {"config", "--global", "commit.gpgsign"},
        {"config", "--global", "tag.gpgsign"},
        {"config", "--global", "user.signingkey"},
        {"config", "--global", "gpg.ssh.allowedSignersFile"},
        {"config", "--global", "gpg.format", "openpgp"},
        {"config", "--global", "user.signingkey", "-K"},
        {"config", "--global", "--unset", "gpg.program"},
        {"config", "--global", "--unset", "gpg.ssh.allowedSignersFile"},
        {"config", "--global", "commit.gpgsign", "false"},
        {"config", "--global", "tag.gpgsign", "true"},
    };
    EXPECT_EQ(recording->argumentLists(), expected);
}

struct MismatchCase {
    const char* name;
    bool signCommits;
    SigningFormat format;
    QString key; // "gpg" and "ssh" stand for the keys made by the test
    std::optional<std::string> userEmail;
    std::optional<IdentityMismatch> expected;
};

TEST_F(SigningSettingsTest, IdentityCheckComparesTheKeysAddressWithGitsUserEmail) {
    if (gpg.empty())
        GTEST_SKIP() << "gpg is not installed";
    const QString gpgKey = QString::fromStdString(makeGpgKey("Signer <signer@orvel.invalid>", "never"));
    makeSshKey("id_ed25519");
    const QString sshKey = QString::fromStdString(sshFolder / "id_ed25519.pub");
    const IdentityMismatch differs{"test@orvel.invalid", "signer@orvel.invalid"};
    const std::vector<MismatchCase> cases = {
        {"signing off", false, SigningFormat::gpg, gpgKey, "test@orvel.invalid", std::nullopt},
        {"addresses differ", true, SigningFormat::gpg, gpgKey, "test@orvel.invalid", differs},
        {"addresses agree", true, SigningFormat::gpg, gpgKey, "signer@orvel.invalid", std::nullopt},
        {"no user.email", true, SigningFormat::gpg, gpgKey, std::nullopt, std::nullopt},
        {"key not listed", true, SigningFormat::gpg, "0123456789ABCDEF", "test@orvel.invalid", std::nullopt},
        {"ssh key", true, SigningFormat::ssh, sshKey, "test@orvel.invalid", std::nullopt},
    };
    for (const MismatchCase& c : cases) {
        SCOPED_TRACE(c.name);
        writeFile(configPath(), c.userEmail ? "[user]\n\temail = " + *c.userEmail + "\n" : "");
        auto model = loadedModel();
        model->setSelectedFormat(c.format);
        (c.format == SigningFormat::ssh ? model->setSshSigningKey(c.key) : model->setGpgSigningKey(c.key));
        model->setSignCommits(c.signCommits);
        await(model->apply());
        EXPECT_EQ(await(model->checkIdentityMismatch()), c.expected);
    }
}

} // namespace
