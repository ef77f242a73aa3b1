// Reading and writing one key of git's configuration at a chosen scope. Keys are the program's own
// constants; a value always follows its key, where git takes it as data even when it starts with
// "-", holds quotes or spans lines.
#pragma once

#include "core/process/GitExecutorProtocol.h"

#include <optional>
#include <string>
#include <string_view>

namespace orvel {

enum class GitConfigScope { system, global, local };

// "--system", "--global" or "--local".
std::string_view scopeArgument(GitConfigScope scope);

namespace ConfigCommands {

// The value without the newlines around it; nothing when git has none (it fails for an unset key)
// or prints an empty one. A git that cannot be started still throws.
std::optional<std::string> get(GitExecutorProtocol& git, const std::string& directory, std::string_view key,
                               GitConfigScope scope);
void set(GitExecutorProtocol& git, const std::string& directory, std::string_view key,
         const std::string& value, GitConfigScope scope);
// Fails when the key is not set.
void unset(GitExecutorProtocol& git, const std::string& directory, std::string_view key,
           GitConfigScope scope);

} // namespace ConfigCommands

} // namespace orvel
