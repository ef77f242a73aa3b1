#include "core/commands/ConfigCommands.h"

#include "core/service/GitServiceError.h"
#include "core/support/Text.h"

namespace orvel {

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
        value = trimmedNewlines(
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
