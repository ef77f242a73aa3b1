// Auto-fetch with its clock in the test's hands: the interval setting, the back-off after three
// failures against a broken remote with its notice, and the resumption after a manual fetch that
// works, with its own notice.
#include "workspace/AutoFetchScheduler.h"

#include "RemoteFixture.h"
#include "workspace/WorkspaceCommands.h"

using namespace orvel;
using namespace std::chrono_literals;

namespace {

class AutoFetch : public test::RemoteFixture {
  protected:
    AutoFetch() {
        scheduler().setWakeTimer([this](std::chrono::seconds delay, std::function<void()> wake) {
            delays.push_back(delay);
            pending = std::move(wake);
        });
    }

    AutoFetchScheduler& scheduler() { return model.autoFetch(); }

    // Ends the current sleep and waits for the round to end in the next sleep or in the back-off.
    void wake() {
        std::function<void()> wakeUp = std::exchange(pending, nullptr);
        ASSERT_TRUE(wakeUp);
        wakeUp();
        ASSERT_TRUE(test::eventually([this] { return pending || scheduler().isBackedOff(); }));
        test::drainQueue(*runner);
    }

    std::vector<std::chrono::seconds> delays;
    std::function<void()> pending;
};

} // namespace

TEST_F(AutoFetch, IntervalSettingIsReadAtEverySleep) {
    openLocal();
    EXPECT_EQ(delays, std::vector{300s});
    const std::pair<QVariant, std::chrono::seconds> cases[] = {
        {QVariant(), 300s}, {QStringLiteral("2"), 120s}, {QStringLiteral("later"), 300s}, {0, 60s}};
    for (const auto& [stored, delay] : cases) {
        defaults.setValue(QStringLiteral("autoFetchInterval"), stored);
        scheduler().start();
        EXPECT_EQ(delays.back(), delay) << stored.toString().toStdString();
    }
    // Switched off, a wake-up only looks again a minute later.
    local.git({"remote", "set-url", "origin", clones / "missing"});
    wake();
    EXPECT_EQ(delays.back(), 60s);
    EXPECT_EQ(scheduler().consecutiveFailures(), 0);

    model.closeTab(model.activeTab()->id());
    EXPECT_FALSE(scheduler().isRunning());
}

TEST_F(AutoFetch, BrokenRemoteBacksOffAfterThreeFailuresAndAWorkingManualFetchResumesIt) {
    openLocal();
    local.git({"remote", "set-url", "origin", clones / "missing"});
    const QString paused = "Auto-fetch paused after 3 failures. A successful manual fetch will resume it.";
    for (int failure = 1; failure <= 3; ++failure) {
        wake();
        EXPECT_EQ(scheduler().consecutiveFailures(), failure);
        EXPECT_FALSE(shown.contains(paused));
    }
    // The third failure is told one interval later, once.
    wake();
    EXPECT_TRUE(scheduler().isBackedOff());
    EXPECT_FALSE(pending);
    EXPECT_EQ(shown.count(paused), 1);

    WorkspaceCommands commands(model, QStringLiteral("toolbar"));
    run(commands.fetch());
    EXPECT_TRUE(lastToast().startsWith("Fetch failed: ")) << lastToast().toStdString();
    EXPECT_TRUE(scheduler().isBackedOff());

    local.git({"remote", "set-url", "origin", origin.path()});
    commitElsewhere("later.txt", "later\n");
    const qsizetype before = shown.size();
    run(commands.fetch());
    EXPECT_EQ(shown.mid(before), (QStringList{"Fetched from origin", "Auto-fetch resumed."}));
    EXPECT_EQ(local.rev("origin/main"), origin.rev("main"));
    EXPECT_FALSE(scheduler().isBackedOff());
    EXPECT_TRUE(scheduler().isRunning());
    EXPECT_EQ(delays.back(), 300s);

    // The loop fetches again, and a success keeps the count at zero.
    commitElsewhere("again.txt", "again\n");
    wake();
    EXPECT_EQ(scheduler().consecutiveFailures(), 0);
    EXPECT_EQ(local.rev("origin/main"), origin.rev("main"));
}
