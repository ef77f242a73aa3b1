// An interactive rebase from its plan to its end: reads the commits to rebase, holds the plan while
// the user edits it, runs it and tells the outcome. A stop (a conflict or an edit step) leaves the
// repository rebasing, and the conflict banner takes over from there.
#pragma once

#include "core/commands/MergePredictionCache.h"
#include "core/records/MergePrediction.h"
#include "core/records/RepoEntry.h"
#include "core/support/LoadGeneration.h"
#include "merge/RebasePlanModel.h"

#include <QObject>
#include <QPointer>

#include <QCoro/QCoroTask>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orvel {

class GitServiceProtocol;
class ToastManager;

class InteractiveRebaseViewModel final : public QObject {
    Q_OBJECT

  public:
    InteractiveRebaseViewModel(RepoEntry repo, std::string onto, std::shared_ptr<GitServiceProtocol> service,
                               ToastManager& toasts, QObject* parent = nullptr);

    const std::string& onto() const { return onto_; }
    // Present once the commits to rebase have been read and there are some.
    RebasePlanModel* plan() { return plan_ ? &*plan_ : nullptr; }
    bool isRunning() const { return isRunning_; }

    // Reads the commits between onto and HEAD, oldest first, and takes them as setEntries does. A
    // failure is told in a toast, then closed().
    QCoro::Task<void> load();
    // The commits to rebase, read already: with none it says so in a toast and emits closed();
    // otherwise the plan starts from them and planReady() follows.
    void setEntries(std::vector<RebaseTodoEntry> entries);
    // Runs the plan as it stands; the outcome is a toast, then finished().
    QCoro::Task<void> start();

    // Predicts which rows of the plan as it stands will stop on a conflict. A newer call (the plan
    // changed again) cancels a running one; starting the rebase never waits for it. The steps
    // before the first row that changed are not worked out again.
    QCoro::Task<void> predict();
    bool isPredicting() const { return isPredicting_; }
    // The last finished prediction of the row `id`, while the plan is the one it was made for.
    const MergePrediction* prediction(const QUuid& id) const;
    // "Checking…" while predicting, why git cannot tell when it cannot, otherwise nothing.
    QString predictionStatus() const;
    // A row's tooltip line: where it stops and on which files; nothing for a clean row.
    QString conflictText(const QUuid& id) const;

  signals:
    void planReady();
    void runningChanged();
    // The rebase ran, whatever its outcome: the repository may have changed.
    void finished();
    // Nothing to edit: the sheet is not to be shown.
    void closed();
    void predictionsChanged();

  private:
    RepoEntry repo_;
    std::string onto_;
    std::shared_ptr<GitServiceProtocol> service_;
    QPointer<ToastManager> toasts_;
    std::optional<RebasePlanModel> plan_;
    bool isRunning_ = false;
    LoadGeneration loads_;
    LoadGeneration predictionRuns_;
    std::map<QUuid, MergePrediction> predictions_;
    std::shared_ptr<MergePredictionCache> predictionCache_ = std::make_shared<MergePredictionCache>();
    bool isPredicting_ = false;
    std::string unpredictableReason_;
};

} // namespace orvel
