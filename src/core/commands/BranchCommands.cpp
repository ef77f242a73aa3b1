#include "core/commands/BranchCommands.h"

#include "core/commands/ArgumentGuard.h"
#include "core/parsers/RefParsers.h"
#include "core/support/Text.h"

namespace orvel::BranchCommands {

namespace {
constexpr std::string_view branchName = "Branch name";
constexpr std::string_view startPointRole = "Start point";
} // namespace

std::vector<BranchEntry> branches(GitExecutorProtocol& git, const std::string& repoPath) {
    const std::string output =
        git.execute({"branch", "-a", "--format", std::string(GitOutputParser::branchListFormat)}, repoPath);
    return GitOutputParser::parseBranches(output);
}

void createBranch(GitExecutorProtocol& git, const std::string& repoPath, const std::string& name,
                  const std::optional<std::string>& startPoint) {
    refuseOptionLike(name, branchName);
    GitExecutorProtocol::Arguments arguments{"branch", "--", name};
    if (startPoint) {
        refuseOptionLike(*startPoint, startPointRole);
        arguments.push_back(*startPoint);
    }
    git.execute(arguments, repoPath);
}

void checkoutBranch(GitExecutorProtocol& git, const std::string& repoPath, const std::string& name) {
    refuseOptionLike(name, branchName);
    git.execute({"checkout", name}, repoPath);
}

void checkoutNewBranch(GitExecutorProtocol& git, const std::string& repoPath, const std::string& name,
                       const std::string& startPoint) {
    refuseOptionLike(name, branchName);
    refuseOptionLike(startPoint, startPointRole);
    git.execute({"checkout", "-b", name, startPoint}, repoPath);
}

void deleteBranch(GitExecutorProtocol& git, const std::string& repoPath, const std::string& name,
                  bool force) {
    refuseOptionLike(name, branchName);
    git.execute({"branch", force ? "-D" : "-d", "--", name}, repoPath);
}

void renameBranch(GitExecutorProtocol& git, const std::string& repoPath, const std::string& oldName,
                  const std::string& newName) {
    refuseOptionLike(oldName, branchName);
    refuseOptionLike(newName, branchName);
    git.execute({"branch", "-m", "--", oldName, newName}, repoPath);
}

void deleteRemoteBranch(GitExecutorProtocol& git, const std::string& repoPath, const std::string& remote,
                        const std::string& branch) {
    refuseOptionLike(remote, "Remote name");
    refuseOptionLike(branch, branchName);
    git.execute({"push", remote, "--delete", "--", branch}, repoPath);
}

std::vector<std::string> mergedBranches(GitExecutorProtocol& git, const std::string& repoPath,
                                        const std::string& target) {
    refuseOptionLike(target, "Merge target");
    const std::string output =
        git.execute({"branch", "--merged", target, "--format=%(refname:short)"}, repoPath);
    std::vector<std::string> names;
    for (const std::string_view line : splitLines(output)) {
        std::string name = trimmedBlanks(line);
        if (!name.empty() && name != target)
            names.push_back(std::move(name));
    }
    return names;
}

} // namespace orvel::BranchCommands
