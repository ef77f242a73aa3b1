#include "settings/GlobalGitConfig.h"

#include "core/service/GitServiceError.h"

namespace orvel {

namespace {

// git config runs outside any repository: an empty "-C" leaves the working directory as it is.
const std::string noRepository;

} // namespace

std::optional<std::string> readGlobalConfig(GitExecutorProtocol& git, std::string_view key) {
    std::string value;
    try {
        value = git.execute({"config", "--global", std::string(key)}, noRepository);
    } catch (const GitServiceError&) {
        return std::nullopt;
    }
    const std::size_t first = value.find_first_not_of('\n');
    if (first == std::string::npos)
        return std::nullopt;
    return value.substr(first, value.find_last_not_of('\n') - first + 1);
}

void writeGlobalConfig(GitExecutorProtocol& git, std::string_view key, std::string_view value) {
    git.execute({"config", "--global", std::string(key), std::string(value)}, noRepository);
}

void eraseGlobalConfig(GitExecutorProtocol& git, std::string_view key) {
    git.execute({"config", "--global", "--unset", std::string(key)}, noRepository);
}

} // namespace orvel
