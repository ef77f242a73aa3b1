// The watcher on a real directory tree: one callback per burst, new directories join the watch,
// nothing after stop(), and a tree that disappears ends cleanly.
#include "workspace/FileSystemWatcher.h"

#include "support/GitFixture.h"

#include <atomic>
#include <filesystem>
#include <thread>

#include <gtest/gtest.h>

using namespace orvel;
using namespace std::chrono_literals;

namespace {

class WatchedTree : public ::testing::Test {
  protected:
    void SetUp() override {
        std::filesystem::create_directories(dir / "src/deep");
        watcher = std::make_unique<FileSystemWatcher>(std::vector<std::string>{dir.path(), dir / ".git"},
                                                      100ms, [this] { ++callbacks; });
        watcher->waitUntilWatching();
    }

    // Waits until `count` callbacks arrived, then a while longer to catch any extra one.
    int settledCallbacks(int count) {
        for (auto deadline = std::chrono::steady_clock::now() + 5s;
             callbacks < count && std::chrono::steady_clock::now() < deadline;)
            std::this_thread::sleep_for(10ms);
        std::this_thread::sleep_for(FileSystemWatcher::latency + 300ms);
        return callbacks;
    }

    test::TempDir dir;
    std::atomic<int> callbacks{0};
    std::unique_ptr<FileSystemWatcher> watcher;
};

} // namespace

TEST_F(WatchedTree, EachBurstGivesOneCallback) {
    for (int burst = 1; burst <= 3; ++burst) {
        test::writeFile(dir / "src/deep/file.txt", std::to_string(burst));
        EXPECT_EQ(settledCallbacks(burst), burst);
    }
    for (int i = 0; i < 1000; ++i)
        test::writeFile(dir / ("src/file" + std::to_string(i % 10)), std::to_string(i));
    EXPECT_EQ(settledCallbacks(4), 4);
}

TEST_F(WatchedTree, DirectoryMadeAfterTheStartIsWatched) {
    std::filesystem::create_directories(dir / "later/inner");
    ASSERT_EQ(settledCallbacks(1), 1);
    test::writeFile(dir / "later/inner/file.txt", "new");
    EXPECT_EQ(settledCallbacks(2), 2);
}

TEST_F(WatchedTree, NothingArrivesAfterStopEvenWithADebouncePending) {
    test::writeFile(dir / "src/file.txt", "changed");
    watcher->stop();
    watcher->stop();
    EXPECT_EQ(settledCallbacks(0), 0);
}

TEST_F(WatchedTree, DeletedTreeEndsCleanly) {
    std::filesystem::remove_all(dir / "src");
    EXPECT_EQ(settledCallbacks(1), 1);
    watcher.reset();
}
