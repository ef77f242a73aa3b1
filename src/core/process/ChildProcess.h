// Starts one child process by absolute path, without a shell, and collects its stdout and stderr
// together through poll(), each stream under its own byte limit. Output stays raw bytes.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <stdexcept>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// How one output stream of a child is treated: captured up to `limit` bytes, or sent to /dev/null.
struct StreamCapture {
    bool discard = false;
    std::size_t limit = 0;

    // When set, the bytes go here as they come instead of into the outcome; the limit still counts.
    std::function<void(std::string_view)> consume;

    static StreamCapture capture(std::size_t limit) { return {false, limit, {}}; }
    static StreamCapture streamed(std::size_t limit, std::function<void(std::string_view)> consume) {
        return {false, limit, std::move(consume)};
    }
    static StreamCapture discarded() { return {true, 0, {}}; }
};

struct ChildRequest {
    std::string executable; // absolute path; also argv[0]
    std::vector<std::string> arguments;
    std::vector<std::string> environment; // complete, as "KEY=VALUE"
    std::string stdinPath = "/dev/null";  // git never reads from us; tools may feed it a file
    StreamCapture stdoutCapture = StreamCapture::capture(1024);
    StreamCapture stderrCapture = StreamCapture::capture(1024);
};

struct ChildOutcome {
    enum class Termination { exited, signaled };
    Termination termination = Termination::exited;
    int code = 0; // exit status, or the number of the signal that ended the child
    std::string out;
    std::string err;

    bool succeeded() const { return termination == Termination::exited && code == 0; }
};

// A stream went over its limit; the child has been killed and reaped when this is thrown.
class OutputLimitExceeded final : public std::runtime_error {
  public:
    OutputLimitExceeded(const char* stream, std::size_t limit);
};

// While it lives, the children that this thread runs belong to `token`: when it fires, a running
// child is killed at once (a torn-down run gets no graceful step) and its run throws
// std::system_error with ECANCELED; a run that would start after that throws the same and starts
// nothing. Worker threads hold one for their whole life, with the token of their pool.
class ChildTeardownScope {
  public:
    explicit ChildTeardownScope(std::stop_token token);
    ~ChildTeardownScope();
    ChildTeardownScope(const ChildTeardownScope&) = delete;
    ChildTeardownScope& operator=(const ChildTeardownScope&) = delete;

  private:
    std::stop_token previous_;
};

// Runs the child to its end. Throws std::system_error when it can't be started, a pipe fails, its
// end can't be learnt or its run is torn down, and OutputLimitExceeded as above. A child is never
// left running or unreaped.
ChildOutcome runChild(const ChildRequest& request);

// The environment of this process as "KEY=VALUE" entries.
std::vector<std::string> inheritedEnvironment();

} // namespace orvel
