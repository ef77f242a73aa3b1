#include "workspace/FileSystemWatcher.h"

#include "core/support/Log.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <optional>
#include <unordered_map>

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/inotify.h>
#include <unistd.h>

namespace orvel {

namespace {

// Changes only: reads and opens don't count, or the program's own `git status` would keep
// waking every tab.
constexpr uint32_t watchedEvents = IN_CREATE | IN_DELETE | IN_MODIFY | IN_ATTRIB | IN_CLOSE_WRITE |
                                   IN_MOVED_FROM | IN_MOVED_TO | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR |
                                   IN_DONT_FOLLOW;

enum class WalkEnd { done, limitReached, stopped };

// The watches of one inotify instance, by descriptor, with the directory each one stands for.
class WatchTree {
  public:
    WatchTree(int fd, const std::atomic<bool>& stopping) : fd_(fd), stopping_(stopping) {}

    // Watches `root` and every directory below it; directories that vanish meanwhile or can't be
    // read are skipped. The first walk of a huge tree takes seconds, so it ends as soon as the
    // watcher is told to stop: closing a tab or quitting must not wait for it.
    WalkEnd add(const std::filesystem::path& root) {
        std::vector<std::filesystem::path> pending{root};
        while (!pending.empty()) {
            if (stopping_)
                return WalkEnd::stopped;
            std::filesystem::path directory = std::move(pending.back());
            pending.pop_back();
            const int wd = inotify_add_watch(fd_, directory.c_str(), watchedEvents);
            if (wd < 0) {
                if (errno == ENOSPC)
                    return WalkEnd::limitReached;
                continue;
            }
            std::error_code error;
            for (std::filesystem::directory_iterator it(directory, error), end;
                 !error && it != end && !stopping_; it.increment(error)) {
                std::error_code statusError;
                if (it->symlink_status(statusError).type() == std::filesystem::file_type::directory)
                    pending.push_back(it->path());
            }
            directories_[wd] = std::move(directory);
        }
        return WalkEnd::done;
    }

    const std::filesystem::path* directory(int wd) const {
        const auto found = directories_.find(wd);
        return found == directories_.end() ? nullptr : &found->second;
    }

    void forget(int wd) { directories_.erase(wd); }

  private:
    int fd_;
    const std::atomic<bool>& stopping_;
    std::unordered_map<int, std::filesystem::path> directories_;
};

int millisecondsUntil(std::chrono::steady_clock::time_point deadline) {
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
    return static_cast<int>(std::max<long long>(0, left.count()));
}

} // namespace

FileSystemWatcher::FileSystemWatcher(std::vector<std::string> paths,
                                     std::chrono::milliseconds debounceInterval, Callback callback,
                                     Callback watchLimitReached)
    : debounceInterval_(debounceInterval), callback_(std::move(callback)),
      watchLimitReached_(std::move(watchLimitReached)), started_(startedPromise_.get_future().share()) {
    qCDebug(lcWatcher, "init: watching %ld paths, debounce=%fs", static_cast<long>(paths.size()),
            debounceInterval.count() / 1000.0);
    inotifyFd_ = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    wakeFd_ = eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
    if (inotifyFd_ < 0 || wakeFd_ < 0) {
        // Without a stream the tab only lacks live updates: the user can still refresh.
        qCWarning(lcWatcher, "op=watcher.start reason=%s", std::strerror(errno));
        startedPromise_.set_value();
        return;
    }
    thread_ = std::thread([this, paths = std::move(paths)]() mutable { run(std::move(paths)); });
}

FileSystemWatcher::~FileSystemWatcher() {
    stop();
    if (inotifyFd_ >= 0)
        close(inotifyFd_);
    if (wakeFd_ >= 0)
        close(wakeFd_);
}

void FileSystemWatcher::waitUntilWatching() const {
    started_.wait();
}

void FileSystemWatcher::stop() {
    if (stopping_.exchange(true))
        return;
    qCDebug(lcWatcher, "stop: tearing down watcher");
    if (thread_.joinable()) {
        const uint64_t one = 1;
        [[maybe_unused]] const ssize_t written = write(wakeFd_, &one, sizeof one);
        thread_.join();
    }
}

void FileSystemWatcher::run(std::vector<std::string> paths) {
    WatchTree tree(inotifyFd_, stopping_);
    auto giveUp = [this] {
        qCWarning(lcWatcher, "op=watcher.limit reason=the kernel's inotify watch limit is reached");
        if (watchLimitReached_)
            watchLimitReached_();
    };
    for (const std::string& path : paths) {
        const WalkEnd end = tree.add(path);
        if (end == WalkEnd::done)
            continue;
        startedPromise_.set_value();
        if (end == WalkEnd::limitReached)
            giveUp();
        return;
    }
    startedPromise_.set_value();
    qCDebug(lcWatcher, "startWatching: inotify started");

    using Clock = std::chrono::steady_clock;
    std::optional<Clock::time_point> batchEnd, debounceEnd;
    alignas(inotify_event) char buffer[64 * 1024];
    while (!stopping_) {
        int timeout = -1;
        if (batchEnd)
            timeout = millisecondsUntil(*batchEnd);
        else if (debounceEnd)
            timeout = millisecondsUntil(*debounceEnd);
        pollfd fds[2] = {{inotifyFd_, POLLIN, 0}, {wakeFd_, POLLIN, 0}};
        if (poll(fds, 2, timeout) < 0 && errno != EINTR)
            return;
        if (stopping_)
            return;
        bool changed = false;
        for (;;) {
            const ssize_t length = read(inotifyFd_, buffer, sizeof buffer);
            if (length <= 0)
                break;
            for (ssize_t offset = 0; offset < length;) {
                const auto* event = reinterpret_cast<const inotify_event*>(buffer + offset);
                offset += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
                if (event->mask & IN_IGNORED) {
                    tree.forget(event->wd);
                    continue;
                }
                changed = true;
                const std::filesystem::path* parent = tree.directory(event->wd);
                if ((event->mask & IN_ISDIR) && (event->mask & (IN_CREATE | IN_MOVED_TO)) && parent &&
                    event->len) {
                    const WalkEnd end = tree.add(*parent / event->name);
                    if (end == WalkEnd::limitReached)
                        giveUp();
                    if (end != WalkEnd::done)
                        return;
                }
            }
        }
        const auto now = Clock::now();
        if (changed && !batchEnd)
            batchEnd = now + latency;
        if (batchEnd && now >= *batchEnd) {
            qCDebug(lcWatcher, "handleEvent: file change detected, debouncing");
            batchEnd.reset();
            debounceEnd = now + debounceInterval_;
        }
        if (debounceEnd && !batchEnd && now >= *debounceEnd) {
            debounceEnd.reset();
            qCDebug(lcWatcher, "handleEvent: debounce fired, invoking callback");
            callback_();
        }
    }
}

} // namespace orvel
