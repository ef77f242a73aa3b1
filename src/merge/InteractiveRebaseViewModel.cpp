#include "merge/InteractiveRebaseViewModel.h"

#include "core/service/GitServiceProtocol.h"
#include "core/support/Log.h"
#include "settings/LocalizationManager.h"
#include "notices/ToastManager.h"

namespace orvel {

InteractiveRebaseViewModel::InteractiveRebaseViewModel(RepoEntry repo, std::string onto,
                                                       std::shared_ptr<GitServiceProtocol> service,
                                                       ToastManager& toasts, QObject* parent)
    : QObject(parent), repo_(std::move(repo)), onto_(std::move(onto)), service_(std::move(service)),
      toasts_(&toasts) {}

QCoro::Task<void> InteractiveRebaseViewModel::load() {
    auto ticket = loads_.begin(this);
    auto service = service_;
    auto todo = service->rebaseTodoList(repo_, onto_, ticket.stopToken());
    try {
        std::vector<RebaseTodoEntry> entries = co_await std::move(todo);
        if (ticket.isCurrent())
            setEntries(std::move(entries));
    } catch (const std::exception& error) {
        if (!ticket.isCurrent())
            co_return;
        qCDebug(lcOps, "op=rebase.loadTodo reason=%s", redactForLog(error.what()).c_str());
        if (toasts_)
            toasts_->show(localized("Load rebase todo failed: %1", QString::fromUtf8(error.what())),
                          ToastType::error);
        emit closed();
    }
}

void InteractiveRebaseViewModel::setEntries(std::vector<RebaseTodoEntry> entries) {
    if (entries.empty()) {
        if (toasts_)
            toasts_->show(localized("No commits to rebase"), ToastType::notice);
        emit closed();
        return;
    }
    plan_.emplace(onto_, std::move(entries));
    emit planReady();
    predict();
}

QCoro::Task<void> InteractiveRebaseViewModel::predict() {
    if (!plan_)
        co_return;
    auto ticket = predictionRuns_.begin(this);
    const RebasePlan plan = plan_->plan();
    predictions_.clear();
    isPredicting_ = true;
    emit predictionsChanged();
    auto service = service_;
    auto run = service->predictRebase(repo_, plan, predictionCache_, ticket.stopToken());
    std::vector<MergePrediction> answers;
    try {
        answers = co_await std::move(run);
    } catch (const std::exception& error) {
        if (!ticket.isCurrent())
            co_return;
        qCDebug(lcOps, "op=rebase.predict reason=%s", redactForLog(error.what()).c_str());
    }
    if (!ticket.isCurrent())
        co_return;
    isPredicting_ = false;
    unpredictableReason_.clear();
    for (std::size_t i = 0; i < answers.size() && i < plan.entries.size(); ++i) {
        if (answers[i].outcome == MergePrediction::Outcome::unknown && unpredictableReason_.empty())
            unpredictableReason_ = answers[i].reason;
        predictions_[plan.entries[i].id] = std::move(answers[i]);
    }
    emit predictionsChanged();
}

const MergePrediction* InteractiveRebaseViewModel::prediction(const QUuid& id) const {
    const auto found = predictions_.find(id);
    return found == predictions_.end() ? nullptr : &found->second;
}

QString InteractiveRebaseViewModel::predictionStatus() const {
    if (isPredicting_)
        return localized("Checking for conflicts…");
    if (!unpredictableReason_.empty())
        return localized("No conflict preview: %1", unpredictableReason_);
    int stopping = 0;
    for (const auto& [id, row] : predictions_) {
        if (row.outcome == MergePrediction::Outcome::unknown)
            return {};
        stopping += row.outcome == MergePrediction::Outcome::conflicts ? 1 : 0;
    }
    if (predictions_.empty())
        return {};
    return stopping == 0 ? localized("No step will stop on a conflict.")
                         : localized("%1 step(s) will stop on a conflict.", stopping);
}

QString InteractiveRebaseViewModel::conflictText(const QUuid& id) const {
    const MergePrediction* row = prediction(id);
    if (!row || row->outcome != MergePrediction::Outcome::conflicts)
        return {};
    return localized("Will stop on a conflict in %1 file(s): %2", static_cast<int>(row->files.size()),
                     shownFiles(row->files));
}

QCoro::Task<void> InteractiveRebaseViewModel::start() {
    if (!plan_ || !plan_->canStart() || isRunning_)
        co_return;
    isRunning_ = true;
    emit runningChanged();
    QPointer<InteractiveRebaseViewModel> self(this);
    auto toasts = toasts_;
    auto service = service_;
    auto run = service->interactiveRebase(repo_, plan_->plan());
    QString message;
    ToastType type = ToastType::notice;
    try {
        const InteractiveRebaseResult result = co_await std::move(run);
        if (const auto* stop = std::get_if<RebaseStop>(&result)) {
            qCDebug(lcOps, "op=rebase.interactive result=conflict step=%d total=%d conflictCount=%ld",
                    stop->currentStep, stop->totalSteps, static_cast<long>(stop->files.size()));
            message = localized("Rebase conflict at step %1/%2 in %3 file(s) — resolve and continue",
                                stop->currentStep, stop->totalSteps, static_cast<int>(stop->files.size()));
            type = ToastType::error;
        } else if (const auto* edit = std::get_if<rebase::EditStop>(&result)) {
            qCDebug(lcOps, "op=rebase.interactive result=editStop step=%d total=%d", edit->currentStep,
                    edit->totalSteps);
            message = localized("Rebase paused at step %1/%2 — amend and continue", edit->currentStep,
                                edit->totalSteps);
        } else {
            qCDebug(lcOps, "op=rebase.interactive result=success");
            message = localized("Interactive rebase completed");
        }
    } catch (const std::exception& error) {
        qCDebug(lcOps, "op=rebase.interactive reason=%s", redactForLog(error.what()).c_str());
        message = localized("Interactive rebase failed: %1", QString::fromUtf8(error.what()));
        type = ToastType::error;
    }
    if (toasts)
        toasts->show(message, type);
    if (!self)
        co_return;
    self->isRunning_ = false;
    emit self->runningChanged();
    emit self->finished();
}

} // namespace orvel
