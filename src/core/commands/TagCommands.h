// Tags: listing, showing, creating (annotated, signed or lightweight), pushing, deleting and
// checking one out. Names and remotes that begin with "-" are refused before git runs, and stand
// behind "--" where the command has one.
#pragma once

#include "core/process/GitExecutorProtocol.h"
#include "core/records/TagEntry.h"

#include <optional>
#include <string>
#include <vector>

namespace orvel::TagCommands {

std::vector<TagEntry> listTags(GitExecutorProtocol& git, const std::string& repoPath);
// What "git show --no-patch" prints for the tag, as it is.
std::string tagDetail(GitExecutorProtocol& git, const std::string& repoPath, const std::string& name);

// With a message the tag is annotated (signed when `sign`); without one it is lightweight. Without
// a hash git tags HEAD.
void createTag(GitExecutorProtocol& git, const std::string& repoPath, const std::string& name,
               const std::optional<std::string>& hash, const std::optional<std::string>& message, bool sign);
void pushTag(GitExecutorProtocol& git, const std::string& repoPath, const std::string& name,
             const std::string& remote);
void deleteTag(GitExecutorProtocol& git, const std::string& repoPath, const std::string& name);
// Leaves HEAD detached at the tag's commit.
void checkoutTag(GitExecutorProtocol& git, const std::string& repoPath, const std::string& name);

} // namespace orvel::TagCommands
