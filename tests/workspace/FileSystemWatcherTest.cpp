// The watcher on a real directory tree: one callback per burst, new directories join the watch,
// nothing after stop(), a stop that cuts the first walk short, a tree that disappears ends
// cleanly, and a linked worktree's git directories watched where git keeps them.
#include "workspace/FileSystemWatcher.h"

#include "core/RealGitService.h"
#include "support/Await.h"
#include "support/GitFixture.h"
#include "workspace/RepositoryWatchPaths.h"

#include <atomic>
#include <filesystem>
#include <fstream>
#include <thread>

#include <fcntl.h>
#include <unistd.h>

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

namespace {

// The inotify watches this process holds, as the kernel lists them for each inotify descriptor.
int inotifyWatchesOfThisProcess() {
    namespace fs = std::filesystem;
    int watches = 0;
    for (const auto& descriptor : fs::directory_iterator("/proc/self/fd")) {
        std::error_code error;
        if (fs::read_symlink(descriptor.path(), error).string() != "anon_inode:inotify")
            continue;
        std::ifstream info("/proc/self/fdinfo/" + descriptor.path().filename().string());
        for (std::string line; std::getline(info, line);)
            watches += line.starts_with("inotify wd:") ? 1 : 0;
    }
    return watches;
}

} // namespace

TEST(FileSystemWatcherStop, CutsTheFirstWalkOfAHugeTreeShort) {
    // Folders are what the first walk pays for (a watch and a read each); 3,000 of them keep it
    // busy long past the stop below.
    test::TempDir dir;
    constexpr int folders = 3000;
    for (int folder = 0; folder < folders; ++folder) {
        const std::filesystem::path path = std::filesystem::path(dir.path()) / std::to_string(folder / 100) /
                                           std::to_string(folder);
        std::filesystem::create_directories(path);
        ::close(::open((path / "file").c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600));
    }
    FileSystemWatcher watcher({dir.path()}, 100ms, [] {});
    watcher.stop();
    // Had the stop waited for the walk, every folder would be watched by now.
    EXPECT_LT(inotifyWatchesOfThisProcess(), folders);
}

TEST(FileSystemWatcherPaths, ALinkedWorktreeRefreshesOnACommitMadeInIt) {
    test::TempRepo repo;
    repo.write("file", "first\n");
    repo.commitAll("first");
    test::TempDir place;
    const std::string worktree = place / "wt";
    repo.git({"worktree", "add", "-q", "-b", "topic", worktree});
    test::RealGitService real;
    const RepoEntry entry = test::await(real.service.open(worktree));
    const std::vector<std::string> paths = repositoryWatchPaths(entry);
    EXPECT_EQ(paths, (std::vector<std::string>{worktree, repo / ".git"}));
    EXPECT_EQ(repositoryWatchPaths(test::await(real.service.open(repo.path()))),
              std::vector<std::string>{repo.path()});

    std::atomic<int> callbacks{0};
    FileSystemWatcher watcher(paths, 50ms, [&callbacks] { ++callbacks; });
    watcher.waitUntilWatching();
    // Nothing below the worktree's folder changes: only its HEAD's branch in the common directory.
    test::git(worktree, {"commit", "-q", "--allow-empty", "-m", "from a terminal"});
    for (auto deadline = std::chrono::steady_clock::now() + 5s;
         callbacks == 0 && std::chrono::steady_clock::now() < deadline;)
        std::this_thread::sleep_for(10ms);
    EXPECT_GT(callbacks, 0);
}
