// Reads `git log` output in the two formats of the history: the compact graph format, whose
// records end in U+001E and whose fields are cut by U+001F, and the long history format, whose
// records begin with U+0001 and whose fields are cut by NUL. Neither parser ever fails: records
// it can't read are dropped, and a date that doesn't read is the distant past.
#pragma once

#include "core/records/CommitEntry.h"
#include "core/records/GraphCommit.h"

#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// Names of a repository's remotes, looked up by the first part of a decoration.
using RemoteNameSet = std::set<std::string, std::less<>>;

// Each is passed to git as one argument, exactly as it stands.
// The graph reads subjects only, and no abbreviations: a long history holds them for every commit,
// and git spends a third of its time on abbreviating. The detail pane reads the rest of one commit.
inline constexpr std::string_view graphFormat = "--format=%H%x1f%P%x1f%aN%x1f%aE%x1f%aI%x1f%s%x1f%D%x1e";
// Ends each record of graphFormat.
inline constexpr char graphRecordEnd = '\x1e';
// Fourteen fields, of which the parser reads nine; the committer, the signature flag and the
// co-author trailers are asked for and left unread, and the field count relies on them.
inline constexpr std::string_view historyFormat =
    "--format=%x01%H%x00%h%x00%P%x00%aN%x00%aE%x00%aI%x00%cN%x00%cE%x00%cI%x00%s%x00%b%x00%D%x00%G?%x00"
    "%(trailers:key=Co-Authored-By,valueonly,separator=%x1E)";

} // namespace orvel

namespace orvel::GitOutputParser {

// A decoration "a/b" is a remote branch when "a" is in `remoteNames`; %D prints short names,
// so the remote list is what tells a local branch "origin/x" from the remote one.
std::vector<GraphCommit> parseCommitGraph(std::string_view output, const RemoteNameSet& remoteNames);

std::vector<CommitEntry> parseCommitHistory(std::string_view output);

} // namespace orvel::GitOutputParser
