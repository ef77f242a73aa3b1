#include "core/commands/ConfigCommands.h"

#include "core/service/GitServiceError.h"

namespace orvel {

namespace {

std::string withoutNewlines(std::string text) {
    const auto first = text.find_first_not_of('\n');
    if (first == std::string::npos)
        return {};
    const auto last = text.find_last_not_of('\n');
    return text.substr(first, last - first + 1);
}

} // namespace

std::string_view scopeArgument(GitConfigScope scope) {
    switch (scope) {
    case GitConfigScope::system:
        return "--system";
    case GitConfigScope::global:
        return "--global";
    case GitConfigScope::local:
        break;
    }
    return "--local";
}

namespace ConfigCommands {

std::optional<std::string> get(GitExecutorProtocol& git, const std::string& directory, std::string_view key,
                               GitConfigScope scope) {
    std::string value;
    try {
        value = withoutNewlines(
            git.execute({"config", std::string(scopeArgument(scope)), std::string(key)}, directory));
    } catch (const GitServiceError& error) {
        if (error.kind() == GitServiceError::Kind::commandFailed)
            return std::nullopt;
        throw;
    }
    if (value.empty())
        return std::nullopt;
    return value;
}

void set(GitExecutorProtocol& git, const std::string& directory, std::string_view key,
         const std::string& value, GitConfigScope scope) {
    git.execute({"config", std::string(scopeArgument(scope)), std::string(key), value}, directory);
}

void unset(GitExecutorProtocol& git, const std::string& directory, std::string_view key,
           GitConfigScope scope) {
    git.execute({"config", std::string(scopeArgument(scope)), "--unset", std::string(key)}, directory);
}

} // namespace ConfigCommands

} // namespace orvel
