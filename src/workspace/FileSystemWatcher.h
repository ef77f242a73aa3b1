// Tells a tab that something below its repository changed: one parameterless callback per burst
// of file events, whoever made them (an editor, a terminal, this program's own git). It watches
// every directory below the given paths with inotify, also directories made later, and reads the
// events on a thread of its own.
#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <future>
#include <string>
#include <thread>
#include <vector>

namespace orvel {

class FileSystemWatcher {
  public:
    using Callback = std::function<void()>;

    // Events are gathered this long before the debounce starts, so that a burst reaches the
    // debounce as a few batches, not one call per event.
    static constexpr std::chrono::milliseconds latency{300};

    // Starts watching at once. `callback` and `watchLimitReached` run on the watcher's thread.
    // `watchLimitReached` is called at most once, when the kernel refuses another watch: the
    // watcher then stops for good, since a partial watch would miss changes silently.
    FileSystemWatcher(std::vector<std::string> paths, std::chrono::milliseconds debounceInterval,
                      Callback callback, Callback watchLimitReached = {});
    ~FileSystemWatcher();
    FileSystemWatcher(const FileSystemWatcher&) = delete;
    FileSystemWatcher& operator=(const FileSystemWatcher&) = delete;

    // Blocks until the directories that existed at the start are watched (or the watcher gave
    // up). For callers that must not miss a change made right after the start.
    void waitUntilWatching() const;

    // Ends watching; no callback runs after it returns. Safe to call more than once; never from
    // the callback itself.
    void stop();

  private:
    void run(std::vector<std::string> paths);

    std::chrono::milliseconds debounceInterval_;
    Callback callback_;
    Callback watchLimitReached_;
    int inotifyFd_ = -1;
    int wakeFd_ = -1;
    std::atomic<bool> stopping_{false};
    std::promise<void> startedPromise_;
    std::shared_future<void> started_;
    std::thread thread_;
};

} // namespace orvel
