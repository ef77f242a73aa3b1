// The commands that manage the list of remotes and talk to other repositories: fetch, pull and
// push. Credentials never pass through here: git asks for them through its askpass program.
#pragma once

#include "core/process/GitExecutorProtocol.h"
#include "core/records/RemoteEntry.h"
#include "core/service/OperationResults.h"

#include <string>
#include <vector>

namespace orvel::RemoteCommands {

std::vector<RemoteEntry> listRemotes(GitExecutorProtocol& git, const std::string& repoPath);
// Remote names and branches beginning with "-" are refused with invalidInput before git runs, and
// they stand behind "--" as well.

// `url` must have passed RepositoryCommands::validateCloneUrl.
void addRemote(GitExecutorProtocol& git, const std::string& repoPath, const std::string& name,
               const std::string& url);
void removeRemote(GitExecutorProtocol& git, const std::string& repoPath, const std::string& name);
void fetch(GitExecutorProtocol& git, const std::string& repoPath, const std::string& remote, bool prune);
// A pull that stops on conflicts answers the conflicted files instead of failing.
MergeResult pull(GitExecutorProtocol& git, const std::string& repoPath, const std::string& remote,
                 PullStrategy strategy);
// Pushes HEAD and sets its upstream. Refuses a detached HEAD and a remote that isn't configured.
void push(GitExecutorProtocol& git, const std::string& repoPath, const std::string& remote);
void pushBranch(GitExecutorProtocol& git, const std::string& repoPath, const std::string& branch,
                const std::string& remote);
// Overwrites the remote branch only while it still is where this repository last saw it.
void forcePush(GitExecutorProtocol& git, const std::string& repoPath, const std::string& remote);

// The names that log lines give to strategies and results.
const char* toString(PullStrategy strategy);
std::string describe(const MergeResult& result);

} // namespace orvel::RemoteCommands
