// The `git log` runs behind the commit search. The query always stands joined to its option, as
// the value of "-S", or behind "--", so git never reads it as an option of its own.
#pragma once

#include "core/process/GitExecutorProtocol.h"
#include "core/records/CommitEntry.h"
#include "core/records/CommitSearchType.h"

#include <string>
#include <vector>

namespace orvel::SearchCommands {

// The argument lists of a search in `scope`: none for an empty query and for the scopes only the
// loaded commits answer (`hash`, `ref`), two for `all` (the message and the author searches, run
// side by side), one otherwise.
std::vector<std::vector<std::string>> searchCommandLines(const std::string& query, CommitSearchType scope,
                                                         long limit);

// The commits one of those command lines finds, as `log` lists them.
std::vector<CommitEntry> searchCommits(GitExecutorProtocol& git, const std::string& repoPath,
                                       const std::vector<std::string>& arguments);

// `more` added behind `found`, without the commits `found` already holds.
void joinSearchResults(std::vector<CommitEntry>& found, std::vector<CommitEntry> more);

} // namespace orvel::SearchCommands
