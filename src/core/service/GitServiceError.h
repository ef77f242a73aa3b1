// The one error type of the git layer: a case with its payload, whose description is the text
// that reaches toasts and alerts.
#pragma once

#include <exception>
#include <string>

namespace orvel {

class GitServiceError final : public std::exception {
public:
    enum class Kind { invalidGitPath, commandFailed, parseFailed, invalidInput, unknownRemote, gitNotFound, detachedHead };

    static GitServiceError invalidGitPath(std::string path);
    static GitServiceError commandFailed(std::string command, std::string stderrText);
    static GitServiceError parseFailed(std::string command, std::string detail);
    static GitServiceError invalidInput(std::string text);
    static GitServiceError unknownRemote(std::string name);
    static GitServiceError gitNotFound();
    static GitServiceError detachedHead();

    Kind kind() const { return kind_; }
    // Payloads by the names of their cases; each is empty for the cases that don't carry it.
    const std::string& path() const { return first_; }
    const std::string& command() const { return first_; }
    const std::string& stderrText() const { return second_; }
    const std::string& detail() const { return second_; }
    const std::string& text() const { return first_; }
    const std::string& name() const { return first_; }

    const std::string& description() const { return description_; }
    const char* what() const noexcept override { return description_.c_str(); }

private:
    GitServiceError(Kind kind, std::string first, std::string second);

    Kind kind_;
    std::string first_;
    std::string second_;
    std::string description_;
};

} // namespace orvel
