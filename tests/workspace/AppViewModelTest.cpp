// The application model: the automatic open of start-up, the recents (cap, order, pruning of stale
// entries with their notice, none when git cannot run), tabs (an open repository is switched to, not opened twice; closing
// picks the last tab) and superseded opens.
#include "workspace/AppViewModel.h"

#include "core/process/SubprocessExecutor.h"
#include "core/queue/GitOpRunner.h"
#include "support/DrainQueue.h"
#include "core/service/MockGitService.h"
#include "core/service/NativeGitService.h"
#include "core/support/UserDefaults.h"
#include "support/Await.h"
#include "support/GitFixture.h"
#include "support/LogCapture.h"

#include <future>

#include <gtest/gtest.h>

using namespace orvel;

namespace {

QStringList storedRecents(const UserDefaults& defaults) {
    return defaults.value(QStringLiteral("recentRepositoryPaths")).toStringList();
}

// The model over the real git, as start-up builds it.
class RealRepositories : public ::testing::Test {
  protected:
    ~RealRepositories() override { test::drainQueue(*runner); }

    InMemoryUserDefaults defaults;
    std::shared_ptr<GitOpRunner> runner = std::make_shared<GitOpRunner>(2);
    std::shared_ptr<NativeGitService> service =
        std::make_shared<NativeGitService>(std::make_shared<SubprocessExecutor>(std::nullopt, defaults), runner);
    AppViewModel model{service, defaults};
};

} // namespace

TEST_F(RealRepositories, PathWithBlanksAroundOpensTheRepository) {
    test::TempRepo repo;
    const std::string head = repo.commitAll("first");
    test::LogCapture log;
    test::await(model.openFromEnvironment(QByteArray::fromStdString("  " + repo.path() + "\n")));

    ASSERT_TRUE(model.activeRepository());
    EXPECT_EQ(model.activeRepository()->headHash, head);
    EXPECT_EQ(model.mode(), AppMode::working);
    ASSERT_EQ(model.openTabs().size(), 1u);
    EXPECT_EQ(model.activeTab()->repo().path, repo.path());
    const QString path = QString::fromStdString(repo.path());
    EXPECT_TRUE(log.contains("env var present: " + path));
    EXPECT_TRUE(log.contains("gitDir=" + path + "/.git exists=true"));
    EXPECT_TRUE(log.contains("openRepository returned; mode=working activeRepo=" + path))
        << log.text().toStdString();
}

TEST_F(RealRepositories, UnsetVariableDoesNothingAndABlankOrInvalidValueLogsTheError) {
    {
        test::LogCapture log;
        test::await(model.openFromEnvironment(std::nullopt));
        EXPECT_TRUE(log.text().isEmpty());
    }
    test::TempDir notARepository;
    for (const QByteArray& value :
         {QByteArray(""), QByteArray(" \n"), QByteArray::fromStdString(notARepository.path())}) {
        test::LogCapture log;
        test::await(model.openFromEnvironment(value));
        EXPECT_TRUE(log.contains("ORVEL_AUTOTEST_OPEN_REPO is set but path is invalid or not a git repo"));
        EXPECT_EQ(model.mode(), AppMode::welcome);
    }
}

TEST_F(RealRepositories, FailedOpenKeepsWhatWasOpenAndTellsWhy) {
    test::TempRepo repo;
    test::await(model.openRepository(repo.path()));
    test::TempDir plain;
    test::await(model.openRepository(plain.path()));

    ASSERT_FALSE(model.toastManager().toasts().empty());
    const ToastItem& toast = model.toastManager().toasts().back();
    EXPECT_EQ(toast.type, ToastType::error);
    EXPECT_TRUE(toast.message.startsWith("Failed to open repository: ")) << toast.message.toStdString();
    EXPECT_EQ(model.activeRepository()->path, repo.path());
    EXPECT_EQ(model.openTabs().size(), 1u);
    EXPECT_EQ(storedRecents(defaults), QStringList{QString::fromStdString(repo.path())});
}

TEST_F(RealRepositories, StaleRecentsArePrunedByNameWithOneNotice) {
    test::TempDir root;
    test::TempRepo valid;
    for (const char* folder : {"a/app", "b/app", "c/other"})
        std::filesystem::create_directories(root / folder);
    test::git(root / "b/app", {"init", "-q"});
    const QStringList stored{QString::fromStdString(root / "gone/app"),
                             QString::fromStdString(root / "b/app"), QString::fromStdString(root / "c/other"),
                             QString::fromStdString(valid.path())};
    defaults.setValue(QStringLiteral("recentRepositoryPaths"), stored);
    AppViewModel restarted(service, defaults);
    ASSERT_EQ(restarted.recentRepositories().size(), 4u);

    test::await(restarted.pruneInvalidRecents());

    // "gone/app" takes the valid "b/app" with it: recents are compared by folder name.
    EXPECT_EQ(storedRecents(defaults), QStringList{QString::fromStdString(valid.path())});
    ASSERT_EQ(restarted.toastManager().toasts().size(), 1u);
    EXPECT_EQ(restarted.toastManager().toasts()[0].message, "Removed invalid repos: app, other");
    EXPECT_EQ(restarted.toastManager().toasts()[0].type, ToastType::warning);
}

TEST_F(RealRepositories, RecentsStayWhenGitCannotRun) {
    test::TempRepo valid;
    test::TempDir notARepository;
    const QStringList stored{QString::fromStdString(valid.path()), QString::fromStdString(notARepository.path())};
    defaults.setValue(QStringLiteral("recentRepositoryPaths"), stored);
    defaults.setValue(QStringLiteral("gitBinaryPath"), QString::fromStdString(notARepository / "no-git"));
    auto broken = std::make_shared<NativeGitService>(std::make_shared<SubprocessExecutor>(std::nullopt, defaults),
                                                     runner);
    AppViewModel restarted(broken, defaults);

    test::await(restarted.pruneInvalidRecents());

    EXPECT_EQ(storedRecents(defaults), stored);
    EXPECT_TRUE(restarted.toastManager().toasts().empty());
}

namespace {

// The model over the in-memory service, whose `open` answers any path.
class Tabs : public ::testing::Test {
  protected:
    void open(const std::string& path) { test::await(model.openRepository(path)); }

    InMemoryUserDefaults defaults;
    std::shared_ptr<MockGitService> service = std::make_shared<MockGitService>();
    AppViewModel model{service, defaults};
};

} // namespace

TEST_F(Tabs, RecentsKeepThirtyNewestFirstAndAReopenedOneMovesToTheTop) {
    for (int i = 0; i < 31; ++i)
        open("/work/r" + std::to_string(i));
    ASSERT_EQ(model.recentRepositories().size(), 30u);
    EXPECT_EQ(model.recentRepositories().front().path, "/work/r30");
    EXPECT_EQ(model.recentRepositories().back().path, "/work/r1");

    open("/work/r28");
    const QStringList stored = storedRecents(defaults);
    ASSERT_EQ(stored.size(), 30);
    EXPECT_EQ(stored[0], "/work/r28");
    EXPECT_EQ(stored[1], "/work/r30");
    EXPECT_EQ(stored[2], "/work/r29");

    model.setSelectedRecentRepoPath("/work/r30");
    model.removeFromRecents("/work/r30");
    EXPECT_EQ(storedRecents(defaults).size(), 29);
    EXPECT_FALSE(model.selectedRecentRepoPath());
}

TEST_F(Tabs, OpeningAnOpenRepositorySwitchesToItsTabWithoutAReload) {
    open("/work/a");
    WorkspaceTabState* first = model.activeTab();
    open("/work/b");
    const int updates = service->commitGraphUpdates;
    open("/work/a");

    ASSERT_EQ(model.openTabs().size(), 2u);
    EXPECT_EQ(model.activeTab(), first);
    EXPECT_EQ(model.activeRepository()->path, "/work/a");
    EXPECT_EQ(service->commitGraphUpdates, updates);
}

TEST_F(Tabs, ClosingPicksTheLastTabAndTheLastClosedReturnsToWelcome) {
    for (const char* path : {"/work/a", "/work/b", "/work/c"})
        open(path);
    const QUuid a = model.openTabs()[0]->id(), b = model.openTabs()[1]->id(), c = model.openTabs()[2]->id();
    model.switchToTab(a);
    model.closeTab(b); // not the active one: the selection stays
    EXPECT_EQ(model.activeTabID(), a);
    model.switchToTab(a);
    model.closeTab(a);
    EXPECT_EQ(model.activeTabID(), c);
    EXPECT_EQ(model.activeRepository()->path, "/work/c");
    model.closeTab(c);
    EXPECT_EQ(model.mode(), AppMode::welcome);
    EXPECT_FALSE(model.activeRepository());
    EXPECT_EQ(model.recentRepositories().size(), 3u);
}

TEST_F(Tabs, ActivityShowsTheNewestMessageAndAnOlderOneComesBack) {
    const QUuid fetch = model.pushActivity("Fetching…");
    const QUuid push = model.pushActivity("Pushing…");
    model.popActivity(QUuid::createUuid());
    EXPECT_EQ(model.activityMessage(), "Pushing…");
    model.popActivity(fetch);
    EXPECT_EQ(model.activityMessage(), "Pushing…");
    model.popActivity(push);
    EXPECT_FALSE(model.activityMessage());
}

namespace {

// Answers the commands of `open` for any path, holding every command for "/slow" until released.
class GatedExecutor final : public GitExecutorProtocol {
  public:
    std::string execute(const Arguments& arguments, const std::string& repoPath) override {
        if (repoPath == "/slow")
            released_.wait();
        if (arguments[0] == "rev-parse" && arguments[1] == "--git-dir")
            return ".git\nfalse\n";
        if (arguments[0] == "rev-parse")
            return repoPath == "/slow" ? "1111111\n" : "2222222\n";
        return "main\n";
    }
    std::string executeWithEnvironment(const Arguments& arguments, const std::string& repoPath,
                                       const Environment&) override {
        return execute(arguments, repoPath);
    }
    std::string resolvedGitPath() override { return "/usr/bin/git"; }
    std::string gitVersion() override { return {}; }
    void setGitPathOverride(const std::optional<std::string>&) override {}

    void release() { gate_.set_value(); }

  private:
    std::promise<void> gate_;
    std::shared_future<void> released_ = gate_.get_future().share();
};

} // namespace

TEST(AppViewModelOpen, LateAnswerOfASupersededOpenOnlyReachesTheRecents) {
    auto executor = std::make_shared<GatedExecutor>();
    InMemoryUserDefaults defaults;
    auto runner = std::make_shared<GitOpRunner>(2);
    AppViewModel model(std::make_shared<NativeGitService>(executor, runner), defaults);
    auto slow = model.openRepository("/slow");
    test::await(model.openRepository("/fast"));
    executor->release();
    test::await(std::move(slow));
    ASSERT_TRUE(model.activeRepository());
    EXPECT_EQ(model.activeRepository()->path, "/fast");
    EXPECT_EQ(model.openTabs().size(), 1u);
    EXPECT_EQ(storedRecents(defaults), (QStringList{"/slow", "/fast"}));
    test::drainQueue(*runner);
}
