// The `git log` runs behind the commit search. The query always stands joined to its option, as
// the value of "-S", or behind "--", so git never reads it as an option of its own.
#pragma once

#include "core/process/GitExecutorProtocol.h"
#include "core/records/CommitEntry.h"
#include "core/records/CommitSearchType.h"

#include <string>
#include <string_view>
#include <vector>

namespace orvel::SearchCommands {

// Every hit is listed by its hash alone: a search of a long history may find all of it.
inline constexpr std::string_view hashFormat = "--format=%H";

// The argument lists of a search in `scope`: none for an empty query and for the scopes only the
// loaded commits answer (`hash`, `ref`), two for `all` (the message and the author searches, run
// side by side), one otherwise.
std::vector<std::vector<std::string>> searchCommandLines(const std::string& query, CommitSearchType scope);

// The hashes of the commits one of those command lines finds, in `log`'s order.
std::vector<std::string> searchCommits(GitExecutorProtocol& git, const std::string& repoPath,
                                       const std::vector<std::string>& arguments);

// `more` added behind `found`, without the hashes `found` already holds.
void joinSearchResults(std::vector<std::string>& found, std::vector<std::string> more);

} // namespace orvel::SearchCommands
