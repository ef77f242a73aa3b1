// The predictions of the git service. They change nothing the user sees (only unreferenced objects
// are written), so they run beside the repository's queue instead of holding up its operations.
#include "core/commands/MergePredictionCommands.h"
#include "core/queue/OperationCancelled.h"
#include "core/service/GitServiceError.h"
#include "core/service/NativeGitService.h"
#include "core/support/Log.h"

#include <mutex>
#include <set>

namespace orvel {

namespace {

// A git too old to predict is said once a program run: the program runs one git for every
// repository, so saying it on each confirmation would only repeat it. Later answers for the same
// reason come back with none, and a confirmation then says nothing of conflicts. Another git chosen
// in the settings, too old as well, has another version in its reason and is told again.
std::string untoldReason(const std::string& reason) {
    static std::mutex mutex;
    static std::set<std::string> told;
    const std::lock_guard lock(mutex);
    return told.insert(reason).second ? reason : std::string();
}

// Runs `predict` unless git is too old to, turning git's failure into an unknown answer made by
// `unknown` from the reason.
template <typename Predict, typename Unknown>
auto predicted(GitExecutorProtocol& git, const std::stop_token& cancellation, Predict predict, Unknown unknown)
    -> decltype(predict()) {
    if (cancellation.stop_requested())
        throw OperationCancelled();
    if (auto reason = MergePredictionCommands::unsupportedReason(git.gitVersion()))
        return unknown(untoldReason(*reason));
    try {
        return predict();
    } catch (const GitServiceError& error) {
        return unknown(error.what());
    }
}

MergePrediction unknownPrediction(const std::string& reason) {
    return MergePrediction::unknown(reason);
}

} // namespace

QCoro::Task<MergePrediction> NativeGitService::predictMerge(RepoEntry repo, std::string branch,
                                                            std::stop_token cancellation) {
    qCDebug(lcOps, "predictMerge: %s in %s", branch.c_str(), repo.path.c_str());
    return opRunner_->runUnqueued([git = executor_, path = repo.path, branch, cancellation] {
        return predicted(
            *git, cancellation, [&] { return MergePredictionCommands::predictMerge(*git, path, branch); },
            unknownPrediction);
    });
}

QCoro::Task<MergePrediction> NativeGitService::predictPick(RepoEntry repo, std::string commit, bool revert,
                                                           std::stop_token cancellation) {
    qCDebug(lcOps, "predictPick: %s%s in %s", revert ? "revert " : "", commit.c_str(), repo.path.c_str());
    return opRunner_->runUnqueued([git = executor_, path = repo.path, commit, revert, cancellation] {
        return predicted(
            *git, cancellation,
            [&] { return MergePredictionCommands::predictPick(*git, path, commit, revert); },
            unknownPrediction);
    });
}

QCoro::Task<std::vector<MergePrediction>>
NativeGitService::predictRebase(RepoEntry repo, RebasePlan plan, std::shared_ptr<MergePredictionCache> cache,
                                std::stop_token cancellation) {
    qCDebug(lcOps, "predictRebase: onto %s with %ld entries in %s", plan.onto.c_str(),
            static_cast<long>(plan.entries.size()), repo.path.c_str());
    return opRunner_->runUnqueued([git = executor_, path = repo.path, plan = std::move(plan),
                                   cache = std::move(cache), cancellation] {
        return predicted(
            *git, cancellation,
            [&] { return MergePredictionCommands::predictRebase(*git, path, plan, *cache, cancellation); },
            [&](const std::string& reason) {
                return std::vector<MergePrediction>(plan.entries.size(), MergePrediction::unknown(reason));
            });
    });
}

} // namespace orvel
