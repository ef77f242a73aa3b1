// The per-repository queue: strict submission order per path, paths side by side, nonces,
// cancellation before submission, the clean-up of tails, runs that never end, and the runner's end.
#include "core/queue/GitOpRunner.h"
#include "core/commands/RemoteCommands.h"
#include "core/commands/StatusCommands.h"
#include "core/process/ChildProcess.h"
#include "core/process/SubprocessExecutor.h"
#include "core/service/GitServiceError.h"
#include "core/support/UserDefaults.h"
#include "support/Await.h"
#include "support/Eventually.h"
#include "support/GitFixture.h"
#include "support/SilentRemote.h"

#include <QCoro/QCoroTask>

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <filesystem>
#include <future>
#include <latch>
#include <mutex>
#include <random>
#include <sys/wait.h>
#include <system_error>
#include <thread>

using namespace orvel;
using namespace std::chrono_literals;

namespace {

// A latch the test opens by hand, to hold a block while others are submitted.
struct Gate {
    std::latch latch{1};
    void open() { latch.count_down(); }
    void wait() { latch.wait(); }
};

struct Journal {
    std::mutex mutex;
    std::vector<std::string> events;
    void add(std::string event) {
        std::lock_guard lock(mutex);
        events.push_back(std::move(event));
    }
};

void waitUntilIdle(const GitOpRunner& runner) {
    for (int i = 0; i < 500 && runner.tailCount() != 0; ++i)
        std::this_thread::sleep_for(2ms);
}

// A generous time-out, so that a stall fails the test instead of hanging it.
template <typename Condition>
bool eventually(Condition condition) {
    return test::eventually(condition, 60s);
}

// The errno of the std::system_error that `task` ends with; 0 for any other outcome.
template <typename T>
int systemErrorOf(QCoro::Task<T> task) {
    try {
        test::await(std::move(task));
    } catch (const std::system_error& error) {
        return error.code().value();
    } catch (...) {
    }
    return 0;
}

bool noChildLeft() {
    return ::waitpid(-1, nullptr, WNOHANG) == -1 && errno == ECHILD;
}

} // namespace

TEST(GitOpRunnerOrder, BlocksOfOnePathRunInSubmissionOrderAfterTheirPredecessorEnded) {
    GitOpRunner runner(4);
    Journal journal;
    Gate gate;
    auto a = runner.serializedExecute("/repo", [&] {
        journal.add("A start");
        gate.wait();
        journal.add("A end");
        throw GitServiceError::commandFailed("a", "failed on purpose");
        return 0;
    });
    auto b = runner.serializedExecute("/repo", [&] {
        journal.add("B");
        return 2;
    });
    auto c = runner.serializedExecute("/repo", [&] {
        journal.add("C");
        return 3;
    });
    std::this_thread::sleep_for(20ms);
    gate.open();
    EXPECT_THROW(test::await(std::move(a)), GitServiceError);
    EXPECT_EQ(test::await(std::move(b)), 2);
    EXPECT_EQ(test::await(std::move(c)), 3);
    EXPECT_EQ(journal.events, (std::vector<std::string>{"A start", "A end", "B", "C"}));
}

TEST(GitOpRunnerOrder, DifferentPathsOverlap) {
    GitOpRunner runner(4);
    std::promise<void> firstRunning;
    Gate release;
    auto first = runner.serializedExecute("/one", [&] {
        firstRunning.set_value();
        release.wait();
        return std::string("one");
    });
    firstRunning.get_future().wait();
    // /two runs to its end while /one is still held.
    EXPECT_EQ(test::await(runner.serializedExecute("/two", [] { return std::string("two"); })), "two");
    release.open();
    EXPECT_EQ(test::await(std::move(first)), "one");
}

TEST(GitOpRunnerNonces, CancelledSubmissionIsRefusedBeforeItTakesANonce) {
    GitOpRunner runner(2);
    std::stop_source cancelled;
    cancelled.request_stop();
    bool ran = false;
    EXPECT_THROW(test::await(runner.serializedExecute(
                     "/r", [&] { ran = true; }, cancelled.get_token())),
                 OperationCancelled);
    EXPECT_FALSE(ran);
    EXPECT_EQ(runner.enqueue("/r", [] { return true; }), 0u);
    EXPECT_EQ(runner.enqueue("/r", [] { return true; }), 1u);
}

TEST(GitOpRunnerTails, TailBelongsToTheLastOperationAndGoesWithIt) {
    GitOpRunner runner(2);
    Gate gate;
    runner.enqueue("/r", [&] {
        gate.wait();
        return true;
    });
    const auto second = runner.enqueue("/r", [] { return true; });
    EXPECT_EQ(runner.tailNonce("/r"), second);
    gate.open();
    waitUntilIdle(runner);
    EXPECT_EQ(runner.tailNonce("/r"), std::nullopt);
    EXPECT_EQ(runner.tailCount(), 0u);
}

TEST(GitOpRunnerValues, VoidMoveOnlyAndUnqueuedBlocksDeliverTheirOutcome) {
    GitOpRunner runner(2);
    int touched = 0;
    test::await(runner.serializedExecute("/r", [&] { touched = 1; }));
    EXPECT_EQ(touched, 1);
    auto pointer = test::await(runner.serializedExecute("/r", [] { return std::make_unique<int>(7); }));
    EXPECT_EQ(*pointer, 7);
    // Unqueued work does not wait for a repository's queue.
    Gate gate;
    auto held = runner.serializedExecute("/r", [&] { gate.wait(); });
    EXPECT_EQ(test::await(runner.runUnqueued([] { return 5; })), 5);
    gate.open();
    test::await(std::move(held));
}

// Several repositories, hundreds of operations of mixed length and outcome: each path sees its
// operations in submission order, never two at once, different paths run at the same time, and
// no tail is left afterwards. Uses only standard primitives so that ThreadSanitizer sees all.
TEST(GitOpRunnerStress, PerPathOrderHoldsUnderLoad) {
    constexpr int paths = 6;
    constexpr int perPath = 120;
    GitOpRunner runner(8);
    std::mutex mutex;
    std::vector<std::vector<int>> seen(paths);
    std::atomic<int> running[paths] = {};
    std::atomic<int> concurrentPaths{0}, maxConcurrentPaths{0}, overlapsWithinPath{0};
    std::atomic<int> done{0};
    std::mt19937 random(42);

    for (int n = 0; n < perPath; ++n) {
        for (int p = 0; p < paths; ++p) {
            const int sleepMicros = static_cast<int>(random() % 300);
            const bool fails = random() % 7 == 0;
            runner.enqueue("/repo/" + std::to_string(p), [&, p, n, sleepMicros, fails] {
                if (running[p].fetch_add(1) != 0)
                    overlapsWithinPath.fetch_add(1);
                const int now = concurrentPaths.fetch_add(1) + 1;
                for (int high = maxConcurrentPaths.load();
                     now > high && !maxConcurrentPaths.compare_exchange_weak(high, now);) {
                }
                std::this_thread::sleep_for(std::chrono::microseconds(sleepMicros));
                {
                    std::lock_guard lock(mutex);
                    seen[p].push_back(n);
                }
                concurrentPaths.fetch_sub(1);
                running[p].fetch_sub(1);
                done.fetch_add(1);
                return !fails;
            });
        }
    }
    for (int i = 0; i < 3000 && done.load() < paths * perPath; ++i)
        std::this_thread::sleep_for(5ms);
    waitUntilIdle(runner);

    ASSERT_EQ(done.load(), paths * perPath);
    EXPECT_EQ(overlapsWithinPath.load(), 0);
    EXPECT_GT(maxConcurrentPaths.load(), 1);
    for (int p = 0; p < paths; ++p) {
        std::vector<int> expected(perPath);
        for (int n = 0; n < perPath; ++n)
            expected[n] = n;
        std::lock_guard lock(mutex);
        EXPECT_EQ(seen[p], expected) << "path " << p;
    }
    EXPECT_EQ(runner.tailCount(), 0u);
}

// Ending the runner ends its work at once: the running block's child is killed, the block behind
// it never runs and its awaiter learns so, and no child is left.
TEST(GitOpRunnerEnd, KillsTheRunningChildAndDropsTheQueuedBlocks) {
    test::TempDir work;
    const std::string started = work / "started";
    auto runner = std::make_unique<GitOpRunner>();
    auto running = runner->serializedExecute("/r", [&] {
        ChildRequest request;
        request.executable = "/bin/sh";
        request.arguments = {"-c", ": > '" + started + "'; exec sleep 600"};
        return runChild(request).code;
    });
    std::atomic<bool> ran{false};
    auto queued = runner->serializedExecute("/r", [&] { ran = true; });
    ASSERT_TRUE(eventually([&] { return std::filesystem::exists(started); }));

    const auto begin = std::chrono::steady_clock::now();
    runner.reset();
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 1s);
    EXPECT_EQ(systemErrorOf(std::move(running)), ECANCELED);
    EXPECT_THROW(test::await(std::move(queued)), OperationCancelled);
    EXPECT_FALSE(ran);
    EXPECT_TRUE(noChildLeft());
}

// A fetch from a remote that never answers holds its thread for as long as it waits. Nine of them
// in nine repositories must leave room for a status of a tenth; ending the runner then ends them.
// Each remote script is written while earlier fetches start: git must not inherit the write end of
// a later script, or running that script fails with "Text file busy".
TEST(GitOpRunnerEnd, NineRunsThatNeverEndDoNotStallATenthRepository) {
    test::TempDir remotes;
    std::vector<std::unique_ptr<test::TempRepo>> repos;
    std::vector<test::SilentRemote> silent;
    for (int i = 0; i < 10; ++i)
        repos.push_back(std::make_unique<test::TempRepo>());
    InMemoryUserDefaults defaults;
    auto git = std::make_shared<SubprocessExecutor>(std::nullopt, defaults);
    auto runner = std::make_unique<GitOpRunner>();

    std::vector<QCoro::Task<void>> fetches;
    for (int i = 0; i < 9; ++i) {
        silent.emplace_back(remotes.path(), std::to_string(i));
        silent.back().addTo(repos[i]->path());
        fetches.push_back(runner->serializedExecute(repos[i]->path(), [git, path = repos[i]->path()] {
            RemoteCommands::fetch(*git, path, "origin", false);
        }));
    }
    ASSERT_TRUE(eventually([&] {
        return std::all_of(silent.begin(), silent.end(), [](const auto& remote) { return remote.reached(); });
    }));

    repos[9]->write("seen", "x");
    auto status = runner->serializedExecute(
        repos[9]->path(), [git, path = repos[9]->path()] { return StatusCommands::status(*git, path); });
    ASSERT_TRUE(eventually([&] { return status.isReady(); })) << "the tenth repository waited for the nine";
    EXPECT_EQ(test::await(std::move(status)).files.size(), 1u);

    runner.reset();
    for (auto& fetch : fetches)
        EXPECT_EQ(systemErrorOf(std::move(fetch)), ECANCELED);
    EXPECT_TRUE(noChildLeft());
    EXPECT_TRUE(eventually([&] {
        return std::none_of(silent.begin(), silent.end(),
                            [](const auto& remote) { return remote.running(); });
    }));
}
