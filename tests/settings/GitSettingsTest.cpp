// The Git tab on real git: the identity and defaults go to the user's global configuration file
// only on Apply, as data whatever they hold; Cancel drops edits; the git program is chosen among
// the ones found or picked by hand, a file that is not a working git is refused, and the choice
// reaches the executor for the commands that follow.
#include "settings/GitSettingsViewModel.h"
#include "settings/ProcessGitBinaryProber.h"
#include "settings/ui/GitSettingsTab.h"

#include "core/process/SubprocessExecutor.h"
#include "core/service/NativeGitConfigService.h"
#include "core/support/UserDefaults.h"
#include "settings/ThemeEngine.h"
#include "support/Await.h"
#include "support/Eventually.h"
#include "support/GitFixture.h"
#include "support/ScopedEnvironment.h"
#include "support/Screenshot.h"
#include "widgets/TokenPalette.h"

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <optional>

using namespace orvel;

namespace {

class GitSettingsOnRealGit : public ::testing::Test {
  protected:
    GitSettingsOnRealGit() {
        test::writeFile(configFile, "[user]\n\tname = Old Name\n\temail = old@example.invalid\n"
                                    "[core]\n\tsshCommand = ssh -i key\n");
    }

    std::unique_ptr<GitSettingsViewModel> loadedModel(std::vector<QString> candidates = {"/usr/bin/git"}) {
        auto model = std::make_unique<GitSettingsViewModel>(
            config, std::make_shared<ProcessGitBinaryProber>(), defaults, executor, std::move(candidates));
        test::await(model->load());
        EXPECT_TRUE(test::eventually([&] { return !model->isDiscovering(); }));
        return model;
    }

    // What git reads back from the global file; nothing when the key is not set.
    std::optional<std::string> stored(const std::string& key) const {
        const test::GitRun run = test::gitAllowingFailure(dir.path(), {"config", "--global", "--get", key});
        if (run.exitCode != 0)
            return std::nullopt;
        return run.out.substr(0, run.out.size() - 1);
    }

    test::TempDir dir;
    const std::string configFile = dir / "gitconfig";
    test::ScopedEnvironment globalConfig{"GIT_CONFIG_GLOBAL", configFile};
    InMemoryUserDefaults defaults;
    std::shared_ptr<SubprocessExecutor> executor =
        std::make_shared<SubprocessExecutor>(std::nullopt, defaults);
    std::shared_ptr<NativeGitConfigService> config = std::make_shared<NativeGitConfigService>(executor);
};

TEST_F(GitSettingsOnRealGit, ApplyWritesWhatChangedAsDataAndNothingBefore) {
    using Model = GitSettingsViewModel;
    const struct {
        const char* what;
        std::function<void(Model&)> edit;
        const char* key;
        std::optional<std::string> expected;
        QString error = {};
    } cases[] = {
        {"a leading dash", [](Model& m) { m.setUserName("-n"); }, "user.name", "-n"},
        {"an option's name", [](Model& m) { m.setUserName("--unset"); }, "user.name", "--unset"},
        {"quotes and backslashes", [](Model& m) { m.setUserName(R"("Q" \n \\ 'x')"); }, "user.name",
         R"("Q" \n \\ 'x')"},
        {"a newline and comment marks", [](Model& m) { m.setUserEmail("a@b; #c\nsecond line"); },
         "user.email", "a@b; #c\nsecond line"},
        {"spaces around", [](Model& m) { m.setDefaultBranch(" main "); }, "init.defaultBranch", "main"},
        {"a path", [](Model& m) { m.setGlobalExcludes("~/.gitignore global"); }, "core.excludesfile",
         "~/.gitignore global"},
        {"an emptied field", [](Model& m) { m.setSshCommand("  "); }, "core.sshCommand", std::nullopt},
        {"a branch with a space", [](Model& m) { m.setDefaultBranch("my branch"); }, "init.defaultBranch",
         std::nullopt, "Branch name must not contain spaces."},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const std::string before = test::readFile(configFile);
        auto model = loadedModel();
        c.edit(*model);
        EXPECT_TRUE(model->hasChanges());
        EXPECT_EQ(test::readFile(configFile), before);

        model->setUserName(model->userName() + " "); // only trimmed differences: nothing to write
        test::await(model->apply());
        EXPECT_EQ(model->errorMessage(), c.error);
        EXPECT_EQ(stored(c.key), c.expected);
        EXPECT_EQ(model->hasChanges(), !c.error.isEmpty());
        test::writeFile(configFile, before);
    }
    // A refused branch name leaves the other changed fields to be written.
    auto model = loadedModel();
    model->setDefaultBranch("my branch");
    model->setUserName("New Name");
    test::await(model->apply());
    EXPECT_EQ(model->errorMessage(), "Branch name must not contain spaces.");
    EXPECT_EQ(stored("user.name"), "New Name");
    EXPECT_EQ(stored("init.defaultBranch"), std::nullopt);
    EXPECT_TRUE(model->hasChanges());
}

TEST_F(GitSettingsOnRealGit, ApplyThenCancelKeepsWhatWasAppliedAndDropsTheRest) {
    test::writeFile(configFile, "");
    auto model = loadedModel();
    EXPECT_EQ(model->userName(), "");
    EXPECT_EQ(model->errorMessage(), "");

    model->setUserName("Ada");
    test::await(model->apply());
    model->setUserEmail("ada@example.invalid");
    model->selectBinary("/usr/bin/git");
    EXPECT_TRUE(model->hasChanges());
    model->revert();

    EXPECT_EQ(model->userName(), "Ada");
    EXPECT_EQ(model->userEmail(), "");
    EXPECT_EQ(model->selectedBinaryPath(), "");
    EXPECT_FALSE(model->hasChanges());
    EXPECT_EQ(stored("user.name"), "Ada");
    EXPECT_EQ(stored("user.email"), std::nullopt);
    EXPECT_FALSE(defaults.value("gitBinaryPath").isValid());
    EXPECT_EQ(loadedModel()->userName(), "Ada");
}

TEST_F(GitSettingsOnRealGit, AFileThatIsNotAWorkingGitIsRefusedAndAChosenGitRunsEveryLaterCommand) {
    const std::string silent = dir / "not-executable";
    test::writeFile(silent, "#!/bin/sh\necho git version 1\n");
    test::writeScript(dir / "fails", "#!/bin/sh\necho git version 1\nexit 1\n");
    test::writeScript(dir / "other-program", "#!/bin/sh\necho other-program 1.0\n");
    test::writeScript(dir / "no-interpreter", "#!/nowhere/sh\n");
    // A git of the user's own that notes each run, to show which git the executor starts.
    const std::string wrapper = dir / "my-git";
    test::writeScript(wrapper,
                      "#!/bin/sh\necho \"$@\" >> '" + dir / "runs" + "'\nexec /usr/bin/git \"$@\"\n");
    defaults.setValue("gitBinaryPath", QString::fromStdString(wrapper));
    auto model = loadedModel({QString::fromStdString(dir / "missing"), "/usr/bin/git"});
    ASSERT_EQ(model->availableBinaries().size(), 2u);
    EXPECT_EQ(model->availableBinaries()[0].path.toStdString(), wrapper);
    EXPECT_TRUE(model->availableBinaries()[0].isCustom);
    EXPECT_EQ(model->availableBinaries()[1].label, "/usr/bin/git (2.39.5)");
    EXPECT_FALSE(model->availableBinaries()[1].isCustom);

    model->selectBinary("");
    for (const std::string& path : {silent, dir / "fails", dir / "other-program", dir / "no-interpreter",
                                    dir.path(), dir / "missing"}) {
        SCOPED_TRACE(path);
        EXPECT_FALSE(test::await(model->selectCustomBinary(QString::fromStdString(path))));
        EXPECT_EQ(model->errorMessage().toStdString(), "'" + path + "' is not a valid git executable.");
        EXPECT_EQ(model->selectedBinaryPath(), "");
        EXPECT_EQ(model->availableBinaries().size(), 2u);
    }
    const std::string link = dir / "linked-git";
    std::filesystem::create_symlink("/usr/bin/git", link);
    EXPECT_TRUE(test::await(model->selectCustomBinary(QString::fromStdString(link))));
    EXPECT_EQ(model->selectedBinaryPath().toStdString(), link);
    EXPECT_EQ(model->errorMessage(), "");
    EXPECT_EQ(model->availableBinaries().back().label.toStdString(), link + " (2.39.5)");
    EXPECT_EQ(defaults.string("gitBinaryPath").toStdString(), wrapper); // stored only on Apply
    test::await(model->apply());
    EXPECT_EQ(model->errorMessage(), "");
    EXPECT_EQ(defaults.string("gitBinaryPath").toStdString(), link);
    EXPECT_EQ(executor->resolvedGitPath(), link);

    model->selectBinary(QString::fromStdString(wrapper));
    test::await(model->apply());
    std::filesystem::remove(dir / "runs");
    EXPECT_EQ(test::await(config->get("user.name", GitConfigScope::global)), "Old Name");
    EXPECT_EQ(test::readFile(dir / "runs"),
              "-C " + std::filesystem::current_path().string() + " config --global user.name\n");

    model->selectBinary("");
    test::await(model->apply());
    EXPECT_FALSE(defaults.value("gitBinaryPath").isValid());
    EXPECT_NE(executor->resolvedGitPath(), wrapper);
}

TEST_F(GitSettingsOnRealGit, TheTabShowsTheFieldsForwardsEditsAndRefusesAPickedNonGit) {
    auto model = loadedModel();
    GitSettingsTab tab(*model);
    auto* name = tab.findChild<QLineEdit*>("settings.git.name-field");
    auto* excludes = tab.findChild<QLineEdit*>("settings.path-row.text.Global Excludes");
    auto* picker = tab.findChild<QComboBox*>("settings.git.binary-picker");
    auto* error = tab.findChild<QLabel*>("settings.git.error-text");
    ASSERT_TRUE(name && excludes && picker && error);
    EXPECT_EQ(name->text(), "Old Name");
    EXPECT_EQ(tab.findChild<QLineEdit*>("settings.git.email-field")->text(), "old@example.invalid");
    ASSERT_EQ(picker->count(), 3);
    EXPECT_EQ(picker->currentText(), "Automatic (found on PATH)");
    EXPECT_EQ(picker->itemText(1), "/usr/bin/git (2.39.5)");
    EXPECT_EQ(picker->itemData(2).toString(), GitSettingsTab::customBinaryTag);

    name->selectAll();
    QTest::keyClicks(name, "Grace");
    tab.findChild<QPushButton*>("settings.path-row.browse.Global Excludes")->click();
    auto* excludesDialog = tab.findChild<QFileDialog*>();
    ASSERT_TRUE(excludesDialog);
    emit excludesDialog->fileSelected("/home/grace/.excludes");
    excludesDialog->close();
    EXPECT_EQ(model->userName(), "Grace");
    EXPECT_EQ(model->globalExcludes(), "/home/grace/.excludes");
    EXPECT_EQ(excludes->text(), "/home/grace/.excludes");

    const std::string notGit = dir / "notes.txt";
    test::writeFile(notGit, "text\n");
    emit picker->activated(2);
    auto* dialog = tab.findChild<QFileDialog*>("settings.git.binary-dialog");
    ASSERT_TRUE(dialog);
    EXPECT_EQ(picker->currentIndex(), 0);
    emit dialog->fileSelected(QString::fromStdString(notGit));
    ASSERT_TRUE(test::eventually([&] { return !error->isHidden(); }));
    EXPECT_EQ(error->text().toStdString(), "'" + notGit + "' is not a valid git executable.");
    EXPECT_EQ(picker->currentIndex(), 0);
    dialog->close();

    emit picker->activated(1);
    EXPECT_EQ(model->selectedBinaryPath(), "/usr/bin/git");
    test::saveScreenshot(tab, QStringLiteral("settings-git"), QSize(640, 420));
    const QPalette light = QApplication::palette();
    QApplication::setPalette(tokenPalette(ThemeEngine::shared().tokens(ColorScheme::dark)));
    QCoreApplication::processEvents();
    test::saveScreenshot(tab, QStringLiteral("settings-git-dark"), QSize(640, 420));
    QApplication::setPalette(light);
}

} // namespace
