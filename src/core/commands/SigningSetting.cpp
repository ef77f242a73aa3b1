#include "core/commands/SigningSetting.h"

#include "core/service/GitServiceError.h"
#include "core/support/Text.h"

#include <algorithm>
#include <cctype>

namespace orvel {

bool signingEnabled(GitExecutorProtocol& git, const std::string& repoPath, std::string_view key) {
    std::string value;
    try {
        value = trimmed(git.execute({"config", std::string(key)}, repoPath));
    } catch (const GitServiceError&) {
        return false; // git's answer for an unset key
    }
    std::ranges::transform(value, value.begin(), [](unsigned char c) { return std::tolower(c); });
    return value == "true";
}

} // namespace orvel
