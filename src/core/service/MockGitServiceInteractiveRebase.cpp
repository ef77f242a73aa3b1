// The interactive rebase of the in-memory service: the todo list comes from the canned graph, and
// a plan is kept for inspection and answered with the canned outcome, refusing what git refuses.
#include "core/commands/ArgumentGuard.h"
#include "core/service/GitServiceError.h"
#include "core/service/MockGitService.h"

#include <algorithm>

namespace orvel {

namespace {

bool names(const GraphCommit& commit, const std::string& onto) {
    if (onto.size() >= 4 && commit.hash.starts_with(onto))
        return true;
    return std::ranges::any_of(commit.refs, [&](const GraphRef& ref) { return ref.name == onto; });
}

} // namespace

QCoro::Task<std::vector<RebaseTodoEntry>> MockGitService::rebaseTodoList(RepoEntry, std::string onto,
                                                                         std::stop_token) {
    refuseOptionLike(onto, "Rebase target");
    const auto target =
        std::ranges::find_if(graph, [&](const GraphCommit& commit) { return names(commit, onto); });
    if (target == graph.end())
        throw GitServiceError::commandFailed("log", "fatal: ambiguous argument '" + onto +
                                                        "..HEAD': unknown revision or path not in the "
                                                        "working tree.");
    std::vector<RebaseTodoEntry> entries;
    auto current = std::ranges::find_if(graph, &GraphCommit::isHead);
    while (current != graph.end() && current != target) {
        RebaseTodoEntry entry;
        entry.id = QUuid::createUuid();
        entry.hash = current->hash.substr(0, 7);
        entry.subject = current->subject;
        entries.push_back(std::move(entry));
        if (current->parentHashes.empty())
            break;
        const std::string& parent = current->parentHashes.front();
        current = std::ranges::find(graph, parent, &GraphCommit::hash);
    }
    std::ranges::reverse(entries);
    co_return entries;
}

QCoro::Task<InteractiveRebaseResult> MockGitService::interactiveRebase(RepoEntry, RebasePlan plan,
                                                                       std::stop_token) {
    refuseOptionLike(plan.onto, "Rebase target");
    const bool empty = plan.entries.empty();
    lastRebasePlan = std::move(plan);
    // git has "nothing to do" with an empty todo list and leaves no rebase behind.
    if (empty)
        throw GitServiceError::commandFailed("rebase", "Rebase failed unexpectedly");
    if (!std::holds_alternative<rebase::Success>(interactiveRebaseOutcome))
        repository.state = RepositoryState::rebasing;
    co_return InteractiveRebaseResult(interactiveRebaseOutcome);
}

QCoro::Task<MergePrediction> MockGitService::predictMerge(RepoEntry, std::string branch, std::stop_token) {
    const auto found = predictions.find(branch);
    co_return found == predictions.end() ? MergePrediction::clean() : found->second;
}

QCoro::Task<MergePrediction> MockGitService::predictPick(RepoEntry repo, std::string commit, bool,
                                                         std::stop_token cancellation) {
    co_return co_await predictMerge(std::move(repo), std::move(commit), std::move(cancellation));
}

QCoro::Task<std::vector<MergePrediction>> MockGitService::predictRebase(RepoEntry, RebasePlan plan,
                                                                        std::shared_ptr<MergePredictionCache>,
                                                                        std::stop_token) {
    std::vector<MergePrediction> answers(plan.entries.size(), MergePrediction::clean());
    std::copy_n(rebasePredictions.begin(), std::min(answers.size(), rebasePredictions.size()), answers.begin());
    lastPredictedPlan = std::move(plan);
    co_return answers;
}

} // namespace orvel
