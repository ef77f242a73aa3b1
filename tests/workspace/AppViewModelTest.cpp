// The application model's open and the automatic open of start-up, with the log lines that
// tell a tester what happened.
#include "workspace/AppViewModel.h"
#include "core/process/SubprocessExecutor.h"
#include "core/queue/GitOpRunner.h"
#include "core/service/MockGitService.h"
#include "core/service/NativeGitService.h"
#include "core/support/UserDefaults.h"
#include "support/Await.h"
#include "support/GitFixture.h"
#include "support/LogCapture.h"
#include "workspace/ui/RepositoryWindow.h"

#include <QLabel>
#include <QSignalSpy>

#include <future>

#include <gtest/gtest.h>

using namespace orvel;

namespace {

// The model over the real git, as start-up builds it.
class AutomaticOpen : public ::testing::Test {
  protected:
    InMemoryUserDefaults defaults;
    std::shared_ptr<NativeGitService> service = std::make_shared<NativeGitService>(
        std::make_shared<SubprocessExecutor>(std::nullopt, defaults), std::make_shared<GitOpRunner>(2));
    AppViewModel model{service};
};

} // namespace

TEST_F(AutomaticOpen, PathWithBlanksAroundOpensTheRepository) {
    test::TempRepo repo;
    const std::string head = repo.commitAll("first");
    test::LogCapture log;
    test::await(model.openFromEnvironment(QByteArray::fromStdString("  " + repo.path() + "\n")));

    ASSERT_TRUE(model.activeRepository());
    EXPECT_EQ(model.activeRepository()->path, repo.path());
    EXPECT_EQ(model.activeRepository()->headHash, head);
    EXPECT_EQ(model.mode(), AppMode::working);
    const QString path = QString::fromStdString(repo.path());
    EXPECT_TRUE(log.contains("env var present: " + path));
    EXPECT_TRUE(log.contains("gitDir=" + path + "/.git exists=true"));
    EXPECT_TRUE(log.contains("openRepository returned; mode=working activeRepo=" + path))
        << log.text().toStdString();
}

TEST_F(AutomaticOpen, UnsetVariableDoesNothingAndABlankOrInvalidValueLogsTheError) {
    {
        test::LogCapture log;
        test::await(model.openFromEnvironment(std::nullopt));
        EXPECT_TRUE(log.text().isEmpty());
        EXPECT_EQ(model.mode(), AppMode::welcome);
    }
    test::TempDir notARepository;
    for (const QByteArray& value :
         {QByteArray(""), QByteArray(" \n"), QByteArray::fromStdString(notARepository.path())}) {
        test::LogCapture log;
        test::await(model.openFromEnvironment(value));
        EXPECT_TRUE(log.contains("ORVEL_AUTOTEST_OPEN_REPO is set but path is invalid or not a git repo"));
        EXPECT_EQ(model.mode(), AppMode::welcome);
        EXPECT_FALSE(model.activeRepository());
    }
}

TEST_F(AutomaticOpen, FailedOpenKeepsWhatWasOpenAndTellsWhy) {
    test::TempRepo repo;
    test::await(model.openRepository(repo.path()));
    ASSERT_TRUE(model.activeRepository());

    QSignalSpy failed(&model, &AppViewModel::openFailed);
    test::TempDir plain;
    test::await(model.openRepository(plain.path()));
    EXPECT_EQ(failed.count(), 1);
    EXPECT_TRUE(model.lastError().contains("not a git repository"));
    EXPECT_EQ(model.activeRepository()->path, repo.path());
    EXPECT_EQ(model.mode(), AppMode::working);
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

TEST(AppViewModelOpen, LateAnswerOfASupersededOpenChangesNothing) {
    auto executor = std::make_shared<GatedExecutor>();
    AppViewModel model(std::make_shared<NativeGitService>(executor, std::make_shared<GitOpRunner>(2)));
    auto slow = model.openRepository("/slow");
    test::await(model.openRepository("/fast"));
    executor->release();
    test::await(std::move(slow));
    ASSERT_TRUE(model.activeRepository());
    EXPECT_EQ(model.activeRepository()->path, "/fast");
    EXPECT_EQ(model.activeRepository()->headHash, "2222222");
}

TEST(RepositoryWindow, ShowsPathBranchHeadAndState) {
    auto service = std::make_shared<MockGitService>();
    service->repository.state = RepositoryState::rebasing;
    AppViewModel model(service);
    RepositoryWindow window(model);
    auto* summary = window.findChild<QLabel*>("repository-window.summary");
    ASSERT_NE(summary, nullptr);
    EXPECT_TRUE(summary->text().contains("No repository open"));
    test::await(model.openRepository("/work/project"));
    EXPECT_TRUE(summary->text().contains("/work/project"));
    EXPECT_TRUE(summary->text().contains("Branch: main"));
    EXPECT_TRUE(summary->text().contains(QString::fromStdString(*service->repository.headHash)));
    EXPECT_TRUE(summary->text().contains("State: rebasing"));
}
