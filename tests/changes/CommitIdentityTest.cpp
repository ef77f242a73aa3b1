// The first commit on a machine where git knows nobody: the form keeps the message, offers to set a
// name and e-mail for every repository or for this one, writes them where the user chose and
// commits.
#include "changes/ChangesOnRealGit.h"
#include "changes/ChangesPaneViewModel.h"
#include "changes/ui/ChangesPaneCommit.h"
#include "core/service/NativeGitConfigService.h"
#include "support/Await.h"
#include "support/Eventually.h"
#include "support/ScopedEnvironment.h"
#include "support/Screenshot.h"

#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include <gtest/gtest.h>

#include <set>
#include <utility>

using namespace orvel;

namespace {

class CommitIdentity : public test::ChangesOnRealGit {
  protected:
    CommitIdentity() {
        repo.write("file.txt", "one\n");
        repo.git({"add", "file.txt"});
        // With user.useConfigOnly git refuses as it does on a fresh machine, whatever the host's
        // name would let it guess.
        test::writeFile(globalFile, "[user]\n\tuseConfigOnly = true\n");
        model.setConfigService(std::make_shared<NativeGitConfigService>(
            std::make_shared<SubprocessExecutor>(std::nullopt, defaults)));
        // Every toast shown, also one that merged into the same last one: which toasts are still up
        // depends on how long the rounds took.
        QObject::connect(&toasts, &ToastManager::toastsChanged, [this] {
            if (!toasts.toasts().empty() &&
                seen.insert({toasts.toasts().back().id, toasts.toasts().back().repeatCount}).second)
                shown.push_back(toasts.toasts().back().message.toStdString());
        });
    }

    template <typename Widget>
    Widget& child(const char* name) {
        auto* widget = form.findChild<Widget*>(QLatin1String(name));
        EXPECT_TRUE(widget) << name;
        return *widget;
    }

    std::string configValue(const std::vector<std::string>& arguments) {
        return repo.gitAllowingFailure(arguments).out;
    }

    test::TempDir home;
    const std::string globalFile = home / "gitconfig";
    test::ScopedEnvironment globalConfig{"GIT_CONFIG_GLOBAL", globalFile};
    test::ScopedEnvironment authorName{"GIT_AUTHOR_NAME", std::nullopt};
    test::ScopedEnvironment authorEmail{"GIT_AUTHOR_EMAIL", std::nullopt};
    test::ScopedEnvironment committerName{"GIT_COMMITTER_NAME", std::nullopt};
    test::ScopedEnvironment committerEmail{"GIT_COMMITTER_EMAIL", std::nullopt};
    test::ScopedEnvironment email{"EMAIL", std::nullopt};
    ChangesPaneViewModel model{entry(), service, toasts};
    ChangesPaneCommit form{model};
    std::set<std::pair<QUuid, int>> seen;
    std::vector<std::string> shown;
};

TEST_F(CommitIdentity, TheRefusedCommitOffersAnIdentityAndCommitsWithIt) {
    const struct {
        const char* scope;
        const char* otherScope;
    } cases[] = {{"commit-form.identity-all-repositories", "--local"},
                 {"commit-form.identity-this-repository", "--global"}};
    form.show();
    auto& offer = child<QWidget>("commit-form.identity");
    auto& save = child<QPushButton>("commit-form.identity-submit");
    int round = 0;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.scope);
        const std::string subject = "First commit " + std::to_string(++round);
        QTest::keyClicks(&child<QLineEdit>("commit-form.subject"), QString::fromStdString(subject));
        test::await(model.refreshStatus());
        shown.clear();
        child<QPushButton>("commit-form.submit").click();
        ASSERT_TRUE(test::eventually([&] { return model.isIdentityRequested() && !model.isCommitting(); }));
        EXPECT_TRUE(offer.isVisible());
        EXPECT_EQ(model.commitSubject().toStdString(), subject);
        EXPECT_EQ(shown, std::vector<std::string>{});
        if (round == 1)
            test::saveScreenshot(form, QStringLiteral("commit-form-identity"),
                                 QSize(640, form.sizeHint().height()));

        child<QLineEdit>("commit-form.identity-name").clear();
        child<QLineEdit>("commit-form.identity-email").clear();
        QTest::keyClicks(&child<QLineEdit>("commit-form.identity-name"), "Ada Lovelace");
        EXPECT_FALSE(save.isEnabled());
        QTest::keyClicks(&child<QLineEdit>("commit-form.identity-email"), " ada@example.invalid ");
        child<QRadioButton>(c.scope).click();
        save.click();
        ASSERT_TRUE(
            test::eventually([&] { return model.commitSubject().isEmpty() && !model.isCommitting(); }));

        EXPECT_FALSE(offer.isVisible());
        EXPECT_EQ(shown, std::vector<std::string>{"Committed successfully"});
        EXPECT_EQ(repo.git({"log", "-1", "--format=%an <%ae>|%cn <%ce>|%s"}),
                  "Ada Lovelace <ada@example.invalid>|Ada Lovelace <ada@example.invalid>|" + subject + "\n");
        EXPECT_EQ(configValue({"config", c.otherScope, "user.name"}), "");
        // The next round starts again from a machine without an identity.
        repo.gitAllowingFailure({"config", "--global", "--unset", "user.name"});
        repo.gitAllowingFailure({"config", "--global", "--unset", "user.email"});
        repo.write("file.txt", "change " + std::to_string(round) + "\n");
        repo.git({"add", "file.txt"});
    }
    EXPECT_EQ(configValue({"config", "--local", "user.email"}), "ada@example.invalid\n");
}

} // namespace
