#include "core/process/ChildProcess.h"

#include <cerrno>
#include <cstdint>
#include <exception>
#include <fcntl.h>
#include <optional>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <stop_token>
#include <sys/eventfd.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <utility>

extern char** environ;

namespace orvel {

namespace {

std::system_error systemError(int code, const std::string& what) {
    return std::system_error(code, std::generic_category(), what);
}

// Owns one file descriptor.
class Fd {
  public:
    Fd() = default;
    explicit Fd(int fd) : fd_(fd) {}
    Fd(const Fd&) = delete;
    Fd& operator=(const Fd&) = delete;
    ~Fd() { reset(); }
    int get() const { return fd_; }
    void reset(int fd = -1) {
        if (fd_ >= 0)
            ::close(fd_);
        fd_ = fd;
    }

  private:
    int fd_ = -1;
};

struct Pipe {
    Fd read;
    Fd write;
};

void openPipe(Pipe& pipe) {
    int fds[2];
    if (::pipe2(fds, O_CLOEXEC) != 0)
        throw systemError(errno, "Could not create a pipe for git");
    pipe.read.reset(fds[0]);
    pipe.write.reset(fds[1]);
}

class FileActions {
  public:
    FileActions() { posix_spawn_file_actions_init(&actions_); }
    ~FileActions() { posix_spawn_file_actions_destroy(&actions_); }
    posix_spawn_file_actions_t* get() { return &actions_; }

    void connect(const StreamCapture& capture, const Pipe& pipe, int target) {
        if (capture.discard)
            posix_spawn_file_actions_addopen(&actions_, target, "/dev/null", O_WRONLY, 0);
        else
            posix_spawn_file_actions_adddup2(&actions_, pipe.write.get(), target);
    }

  private:
    posix_spawn_file_actions_t actions_;
};

// The teardown token of the runs this thread makes; see ChildTeardownScope.
thread_local std::stop_token threadTeardown;

std::system_error tornDown(const std::string& executable) {
    return systemError(ECANCELED, "Stopped git at " + executable + ": its work was torn down");
}

// Runs when the run is torn down: kills the child at once and wakes the reading loop, which may
// wait on pipes that a grandchild still holds open.
struct KillChild {
    pid_t pid;
    int wake;
    void operator()() const noexcept {
        ::kill(pid, SIGKILL);
        const std::uint64_t one = 1;
        [[maybe_unused]] const ssize_t written = ::write(wake, &one, sizeof one);
    }
};

// Waits until the child has ended but leaves it unreaped, so that its pid can't be reused while a
// teardown may still signal it. Answers the errno of a failure, or 0.
int waitForExit(pid_t pid) {
    siginfo_t info{};
    while (::waitid(P_PID, pid, &info, WEXITED | WNOWAIT) != 0) {
        if (errno != EINTR)
            return errno;
    }
    return 0;
}

// Reaps an ended child and answers its wait status. A child that can't be reaped (for example
// when the host program ignores SIGCHLD) has no known status: that is a failure, not a clean exit.
int reap(pid_t pid) {
    int status = 0;
    while (::waitpid(pid, &status, 0) < 0) {
        if (errno != EINTR)
            throw systemError(errno, "Could not learn how git ended");
    }
    return status;
}

struct Collector {
    Pipe pipe;
    std::string* sink = nullptr;
    std::size_t limit = 0;
    const char* name = "";
    bool open = false;
};

// Reads what is available on `collector`; returns false when the stream went over its limit.
// git writes its output in pieces of a few kilobytes, so the read goes to a fixed buffer and only
// the bytes that came are appended: growing the sink by a whole chunk before each read would
// zero that chunk every time.
bool drain(Collector& collector) {
    constexpr std::size_t chunk = 64 * 1024;
    static thread_local char buffer[chunk];
    ssize_t got;
    do {
        got = ::read(collector.pipe.read.get(), buffer, chunk);
    } while (got < 0 && errno == EINTR);
    if (got <= 0) {
        collector.open = false;
        collector.pipe.read.reset();
        return true;
    }
    collector.sink->append(buffer, static_cast<std::size_t>(got));
    return collector.sink->size() <= collector.limit;
}

// Reads both streams until they end; stops early, and answers why, when a stream goes over its
// limit or the pipes fail. A readable `wake` (the run was torn down) stops it as well.
std::exception_ptr collect(Collector (&collectors)[2], int wake) {
    while (collectors[0].open || collectors[1].open) {
        pollfd fds[3];
        Collector* owners[2];
        nfds_t count = 0;
        for (auto& collector : collectors) {
            if (!collector.open)
                continue;
            fds[count] = {collector.pipe.read.get(), POLLIN, 0};
            owners[count++] = &collector;
        }
        const nfds_t streams = count;
        if (wake >= 0)
            fds[count++] = {wake, POLLIN, 0};
        if (::poll(fds, count, -1) < 0) {
            if (errno == EINTR)
                continue;
            return std::make_exception_ptr(systemError(errno, "Could not read the output of git"));
        }
        if (streams < count && fds[streams].revents != 0)
            return nullptr;
        for (nfds_t i = 0; i < streams; ++i) {
            if (!(fds[i].revents & (POLLIN | POLLHUP | POLLERR)))
                continue;
            if (!drain(*owners[i]))
                return std::make_exception_ptr(OutputLimitExceeded(owners[i]->name, owners[i]->limit));
        }
    }
    return nullptr;
}

} // namespace

ChildTeardownScope::ChildTeardownScope(std::stop_token token)
    : previous_(std::exchange(threadTeardown, token)) {}

ChildTeardownScope::~ChildTeardownScope() {
    threadTeardown = std::move(previous_);
}

OutputLimitExceeded::OutputLimitExceeded(const char* stream, std::size_t limit)
    : std::runtime_error(std::string("outputBufferLimitExceeded(stream: ") + stream +
                         ", limit: " + std::to_string(limit) + " bytes)") {}

std::vector<std::string> inheritedEnvironment() {
    std::vector<std::string> entries;
    for (char** entry = environ; entry && *entry; ++entry)
        entries.emplace_back(*entry);
    return entries;
}

ChildOutcome runChild(const ChildRequest& request) {
    ChildOutcome outcome;
    Collector collectors[2];
    collectors[0].sink = &outcome.out;
    collectors[0].limit = request.stdoutCapture.limit;
    collectors[0].name = "stdout";
    collectors[0].open = !request.stdoutCapture.discard;
    collectors[1].sink = &outcome.err;
    collectors[1].limit = request.stderrCapture.limit;
    collectors[1].name = "stderr";
    collectors[1].open = !request.stderrCapture.discard;
    for (auto& collector : collectors) {
        if (collector.open)
            openPipe(collector.pipe);
    }

    FileActions actions;
    posix_spawn_file_actions_addopen(actions.get(), STDIN_FILENO, request.stdinPath.c_str(), O_RDONLY, 0);
    actions.connect(request.stdoutCapture, collectors[0].pipe, STDOUT_FILENO);
    actions.connect(request.stderrCapture, collectors[1].pipe, STDERR_FILENO);
    // git gets its three standard streams and nothing else: a descriptor another thread opened
    // without close-on-exec (a file being written, a pipe of another child) must not live on in git
    // and in what git starts, where a held write end makes an exec fail with "Text file busy".
    posix_spawn_file_actions_addclosefrom_np(actions.get(), STDERR_FILENO + 1);

    std::vector<char*> argv;
    argv.push_back(const_cast<char*>(request.executable.c_str()));
    for (const auto& argument : request.arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    std::vector<char*> envp;
    for (const auto& entry : request.environment)
        envp.push_back(const_cast<char*>(entry.c_str()));
    envp.push_back(nullptr);

    const std::stop_token teardown = threadTeardown;
    Fd wake;
    if (teardown.stop_possible()) {
        wake.reset(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
        if (wake.get() < 0)
            throw systemError(errno, "Could not create a pipe for git");
    }
    if (teardown.stop_requested())
        throw tornDown(request.executable);

    pid_t pid = 0;
    const int spawnError =
        ::posix_spawn(&pid, request.executable.c_str(), actions.get(), nullptr, argv.data(), envp.data());
    if (spawnError != 0)
        throw systemError(spawnError, "Could not run git at " + request.executable);
    for (auto& collector : collectors)
        collector.pipe.write.reset();

    std::exception_ptr failure;
    {
        std::optional<std::stop_callback<KillChild>> killOnTeardown;
        if (teardown.stop_possible())
            killOnTeardown.emplace(teardown, KillChild{pid, wake.get()});
        failure = collect(collectors, wake.get());
        if (failure)
            ::kill(pid, SIGKILL);
        if (const int waitError = waitForExit(pid); waitError != 0) {
            if (!failure)
                failure = std::make_exception_ptr(systemError(waitError, "Could not learn how git ended"));
            std::rethrow_exception(failure); // no child is left to reap
        }
    } // from here on nothing signals the pid, so reaping it is safe
    const int status = reap(pid);
    if (failure)
        std::rethrow_exception(failure);
    if (teardown.stop_requested())
        throw tornDown(request.executable);
    if (WIFSIGNALED(status)) {
        outcome.termination = ChildOutcome::Termination::signaled;
        outcome.code = WTERMSIG(status);
    } else {
        outcome.code = WEXITSTATUS(status);
    }
    return outcome;
}

} // namespace orvel
