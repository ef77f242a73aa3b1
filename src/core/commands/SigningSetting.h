// Whether git signs what it makes, as its configuration says: asked once before a commit, an
// amend or an annotated tag, outside the repository's queue.
#pragma once

#include "core/process/GitExecutorProtocol.h"

#include <string>
#include <string_view>

namespace orvel {

inline constexpr std::string_view commitSigningKey = "commit.gpgsign";
inline constexpr std::string_view tagSigningKey = "tag.gpgsign";

// Whether the configuration value of `key` is "true" in any case and spacing; an unset key (git
// fails) or any other value means off.
bool signingEnabled(GitExecutorProtocol& git, const std::string& repoPath, std::string_view key);

} // namespace orvel
