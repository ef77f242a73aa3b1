#include "core/process/ChildProcess.h"

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

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

int waitForChild(pid_t pid) {
    int status = 0;
    while (::waitpid(pid, &status, 0) < 0) {
        if (errno != EINTR)
            return 0;
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

} // namespace

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

    std::vector<char*> argv;
    argv.push_back(const_cast<char*>(request.executable.c_str()));
    for (const auto& argument : request.arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    std::vector<char*> envp;
    for (const auto& entry : request.environment)
        envp.push_back(const_cast<char*>(entry.c_str()));
    envp.push_back(nullptr);

    pid_t pid = 0;
    const int spawnError =
        ::posix_spawn(&pid, request.executable.c_str(), actions.get(), nullptr, argv.data(), envp.data());
    if (spawnError != 0)
        throw systemError(spawnError, "Could not run git at " + request.executable);
    for (auto& collector : collectors)
        collector.pipe.write.reset();

    while (collectors[0].open || collectors[1].open) {
        pollfd fds[2];
        Collector* owners[2];
        nfds_t count = 0;
        for (auto& collector : collectors) {
            if (!collector.open)
                continue;
            fds[count] = {collector.pipe.read.get(), POLLIN, 0};
            owners[count++] = &collector;
        }
        if (::poll(fds, count, -1) < 0) {
            if (errno == EINTR)
                continue;
            const int pollError = errno;
            ::kill(pid, SIGKILL);
            waitForChild(pid);
            throw systemError(pollError, "Could not read the output of git");
        }
        for (nfds_t i = 0; i < count; ++i) {
            if (!(fds[i].revents & (POLLIN | POLLHUP | POLLERR)))
                continue;
            if (!drain(*owners[i])) {
                ::kill(pid, SIGKILL);
                waitForChild(pid);
                throw OutputLimitExceeded(owners[i]->name, owners[i]->limit);
            }
        }
    }

    const int status = waitForChild(pid);
    if (WIFSIGNALED(status)) {
        outcome.termination = ChildOutcome::Termination::signaled;
        outcome.code = WTERMSIG(status);
    } else {
        outcome.code = WEXITSTATUS(status);
    }
    return outcome;
}

} // namespace orvel
