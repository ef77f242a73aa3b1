#include "core/commands/MergePredictionCommands.h"

#include "core/commands/ArgumentGuard.h"
#include "core/parsers/MergeTreeParser.h"
#include "core/queue/OperationCancelled.h"
#include "core/service/GitServiceError.h"
#include "core/support/Text.h"

#include <algorithm>
#include <charconv>
#include <map>

namespace orvel::MergePredictionCommands {

namespace {

using GitOutputParser::CommitTrees;

// Fixed names and dates give a throw-away commit the same name each time it is made again for the
// same tree and parent, so re-predicting a plan adds no new objects.
const GitExecutorProtocol::Environment throwAwayIdentity{
    {"GIT_AUTHOR_NAME", "prediction"},     {"GIT_AUTHOR_EMAIL", "prediction@localhost"},
    {"GIT_AUTHOR_DATE", "@0 +0000"},       {"GIT_COMMITTER_NAME", "prediction"},
    {"GIT_COMMITTER_EMAIL", "prediction@localhost"}, {"GIT_COMMITTER_DATE", "@0 +0000"}};

std::string commitTree(GitExecutorProtocol& git, const std::string& repoPath, const std::string& tree,
                       const std::optional<std::string>& parent) {
    GitExecutorProtocol::Arguments arguments{"commit-tree", "-m", "prediction"};
    if (parent)
        arguments.insert(arguments.end(), {"-p", *parent});
    arguments.push_back(tree);
    return trimmed(git.executeWithEnvironment(arguments, repoPath, throwAwayIdentity));
}

// merge-tree exits with 1 when the merge conflicts, having written the tree and the files all the
// same; the output is read as it comes, so that it survives that exit. Any other failure leaves no
// tree on stdout, and git's error stands.
GitOutputParser::MergeTreeOutput mergeTree(GitExecutorProtocol& git, const std::string& repoPath,
                                           const std::string& ours, const std::string& theirs,
                                           bool unrelated) {
    GitExecutorProtocol::Arguments arguments{"merge-tree", "--write-tree", "--name-only", "--no-messages", "-z"};
    if (unrelated)
        arguments.push_back("--allow-unrelated-histories");
    arguments.insert(arguments.end(), {ours, theirs});
    std::string output;
    try {
        git.executeStreaming(arguments, repoPath, [&output](std::string_view piece) { output += piece; });
    } catch (const GitServiceError&) {
        if (auto parsed = GitOutputParser::parseMergeTree(output); parsed && !parsed->files.empty())
            return std::move(*parsed);
        throw;
    }
    if (auto parsed = GitOutputParser::parseMergeTree(output))
        return std::move(*parsed);
    throw GitServiceError::parseFailed("merge-tree", "no tree in its output");
}

MergePrediction predictionOf(GitOutputParser::MergeTreeOutput output) {
    if (output.files.empty())
        return MergePrediction::clean();
    return {MergePrediction::Outcome::conflicts, std::move(output.files), {}};
}

// Commit, tree and parents of each name, looked up in one run.
std::vector<CommitTrees> commitTrees(GitExecutorProtocol& git, const std::string& repoPath,
                                     const std::vector<std::string>& names) {
    GitExecutorProtocol::Arguments arguments{"log", "--no-walk=unsorted", "--format=%H %T %P", "--end-of-options"};
    arguments.insert(arguments.end(), names.begin(), names.end());
    return GitOutputParser::parseCommitTrees(git.execute(arguments, repoPath));
}

CommitTrees resolved(GitExecutorProtocol& git, const std::string& repoPath, const std::string& name) {
    refuseOptionLike(name, "Revision");
    auto records = commitTrees(git, repoPath, {name});
    if (records.empty())
        throw GitServiceError::parseFailed("log", "no commit named " + name);
    return std::move(records.front());
}

std::string emptyTree(GitExecutorProtocol& git, const std::string& repoPath) {
    // mktree reads its entries from stdin, which is empty for every child.
    return trimmed(git.execute({"mktree"}, repoPath));
}

// The pick of `commit` onto a state whose tree is `tree`: merged against the commit's parent as
// base. A throw-away commit of `tree` on that parent makes the parent the one merge base.
MergePrediction pickOnto(GitExecutorProtocol& git, const std::string& repoPath, const std::string& tree,
                         const CommitTrees& commit, std::string& resultTree) {
    const std::optional<std::string> parent =
        commit.parents.empty() ? std::nullopt : std::optional(commit.parents.front());
    const std::string ours = commitTree(git, repoPath, tree, parent);
    auto output = mergeTree(git, repoPath, ours, commit.hash, !parent);
    resultTree = output.tree;
    // A file moved aside for a directory is named after its side; the real pick calls ours HEAD.
    const std::string ourSuffix = "~" + ours;
    for (auto& path : output.files)
        if (path.ends_with(ourSuffix))
            path.replace(path.size() - ours.size(), ours.size(), "HEAD");
    std::sort(output.files.begin(), output.files.end());
    return predictionOf(std::move(output));
}

bool changesNothing(RebaseAction action) {
    return action == RebaseAction::drop || action == RebaseAction::exec;
}

} // namespace

std::optional<std::string> unsupportedReason(std::string_view versionText) {
    constexpr std::string_view prefix = "git version ";
    int major = 0;
    int minor = 0;
    if (versionText.starts_with(prefix)) {
        const char* begin = versionText.data() + prefix.size();
        const char* end = versionText.data() + versionText.size();
        auto [afterMajor, majorError] = std::from_chars(begin, end, major);
        if (majorError == std::errc() && afterMajor < end && *afterMajor == '.' &&
            std::from_chars(afterMajor + 1, end, minor).ec == std::errc() &&
            std::pair(major, minor) >= std::pair(2, 38))
            return std::nullopt;
    }
    return "Conflict preview needs git 2.38 or later; this is " + std::string(trimmed(versionText));
}

MergePrediction predictMerge(GitExecutorProtocol& git, const std::string& repoPath, const std::string& branch) {
    refuseOptionLike(branch, "Branch name");
    return predictionOf(mergeTree(git, repoPath, "HEAD", branch, false));
}

MergePrediction predictPick(GitExecutorProtocol& git, const std::string& repoPath, const std::string& commit,
                            bool revert) {
    const CommitTrees head = resolved(git, repoPath, "HEAD");
    const CommitTrees picked = resolved(git, repoPath, commit);
    std::string resultTree;
    if (!revert)
        return pickOnto(git, repoPath, head.tree, picked, resultTree);
    // A revert is the pick of the parent's tree with the commit itself as base.
    const std::string parentTree = picked.parents.empty()
                                       ? emptyTree(git, repoPath)
                                       : resolved(git, repoPath, picked.parents.front()).tree;
    const std::string ours = commitTree(git, repoPath, head.tree, picked.hash);
    const std::string theirs = commitTree(git, repoPath, parentTree, picked.hash);
    return predictionOf(mergeTree(git, repoPath, ours, theirs, false));
}

std::vector<MergePrediction> predictRebase(GitExecutorProtocol& git, const std::string& repoPath,
                                           const RebasePlan& plan, MergePredictionCache& cache,
                                           std::stop_token cancellation) {
    refuseOptionLike(plan.onto, "Target");
    std::vector<std::string> names;
    for (const auto& entry : plan.entries)
        if (!changesNothing(entry.action)) {
            refuseOptionLike(entry.hash, "Revision");
            names.push_back(entry.hash);
        }
    const auto commits = names.empty() ? std::vector<CommitTrees>{} : commitTrees(git, repoPath, names);
    std::vector<std::string> parentNames;
    for (const auto& commit : commits)
        if (!commit.parents.empty())
            parentNames.push_back(commit.parents.front());
    std::map<std::string, std::string> treeOf;
    if (!parentNames.empty())
        for (auto& parent : commitTrees(git, repoPath, parentNames))
            treeOf[parent.hash] = parent.tree;
    // The rows name commits by abbreviated hashes, unique in the repository.
    const auto commitNamed = [&commits](const std::string& hash) -> const CommitTrees* {
        const auto found = std::find_if(commits.begin(), commits.end(),
                                        [&hash](const CommitTrees& c) { return c.hash.starts_with(hash); });
        return found == commits.end() ? nullptr : &*found;
    };

    std::string tree = resolved(git, repoPath, plan.onto).tree;
    std::vector<MergePrediction> predictions;
    for (const auto& entry : plan.entries) {
        if (cancellation.stop_requested())
            throw OperationCancelled();
        if (changesNothing(entry.action)) {
            predictions.push_back(MergePrediction::clean());
            continue;
        }
        const CommitTrees* commit = entry.hash.empty() ? nullptr : commitNamed(entry.hash);
        if (!commit) {
            predictions.push_back(MergePrediction::unknown("No commit named " + entry.hash));
            continue;
        }
        // On an unchanged parent tree the pick is the commit's own tree, as a fast-forward would be.
        const auto parentTree = commit->parents.empty() ? treeOf.end() : treeOf.find(commit->parents.front());
        if (parentTree != treeOf.end() && parentTree->second == tree) {
            tree = commit->tree;
            predictions.push_back(MergePrediction::clean());
            continue;
        }
        if (auto known = cache.find(tree, commit->hash)) {
            tree = std::move(known->tree);
            predictions.push_back(std::move(known->prediction));
            continue;
        }
        MergePredictionCache::Pick pick;
        pick.prediction = pickOnto(git, repoPath, tree, *commit, pick.tree);
        cache.store(tree, commit->hash, pick);
        tree = std::move(pick.tree);
        predictions.push_back(std::move(pick.prediction));
    }
    return predictions;
}

} // namespace orvel::MergePredictionCommands
