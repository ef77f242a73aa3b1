// git's global configuration ("git config --global"), read and written through the executor. The
// key is always the program's own; a value goes after it, where git takes it as data even when it
// begins with "-". Each call blocks until git has ended, so it runs on a worker thread.
#pragma once

#include "core/process/GitExecutorProtocol.h"

#include <optional>
#include <string>
#include <string_view>

namespace orvel {

// The value without the newlines around it; none when it is empty or git fails with an exit
// status (as it does for a key that isn't set). A git that can't run is passed on.
std::optional<std::string> readGlobalConfig(GitExecutorProtocol& git, std::string_view key);
// Passes every failure on.
void writeGlobalConfig(GitExecutorProtocol& git, std::string_view key, std::string_view value);
// Passes every failure on, also git's for a key that isn't set.
void eraseGlobalConfig(GitExecutorProtocol& git, std::string_view key);

} // namespace orvel
