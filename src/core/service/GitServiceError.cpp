#include "core/service/GitServiceError.h"

namespace orvel {

namespace {

std::string describe(GitServiceError::Kind kind, const std::string& first, const std::string& second) {
    using Kind = GitServiceError::Kind;
    switch (kind) {
    case Kind::invalidGitPath:
        return "Invalid git path: " + first;
    case Kind::commandFailed:
        return "git " + first + " failed: " + second;
    case Kind::parseFailed:
        return "Failed to parse git " + first + ": " + second;
    case Kind::invalidInput:
        return "Invalid input: " + first;
    case Kind::unknownRemote:
        return "Cannot push: remote \"" + first + "\" does not exist.";
    case Kind::gitNotFound:
        return "Git not found. Install git with your package manager or configure path in Preferences.";
    case Kind::detachedHead:
        return "Cannot push: HEAD is detached. Check out a branch first.";
    }
    return {};
}

} // namespace

GitServiceError::GitServiceError(Kind kind, std::string first, std::string second)
    : kind_(kind), first_(std::move(first)), second_(std::move(second)),
      description_(describe(kind_, first_, second_)) {}

GitServiceError GitServiceError::invalidGitPath(std::string path) {
    return {Kind::invalidGitPath, std::move(path), {}};
}
GitServiceError GitServiceError::commandFailed(std::string command, std::string stderrText) {
    return {Kind::commandFailed, std::move(command), std::move(stderrText)};
}
GitServiceError GitServiceError::parseFailed(std::string command, std::string detail) {
    return {Kind::parseFailed, std::move(command), std::move(detail)};
}
GitServiceError GitServiceError::invalidInput(std::string text) { return {Kind::invalidInput, std::move(text), {}}; }
GitServiceError GitServiceError::unknownRemote(std::string name) { return {Kind::unknownRemote, std::move(name), {}}; }
GitServiceError GitServiceError::gitNotFound() { return {Kind::gitNotFound, {}, {}}; }
GitServiceError GitServiceError::detachedHead() { return {Kind::detachedHead, {}, {}}; }

} // namespace orvel
