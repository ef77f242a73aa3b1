// What merging one branch into another will do, as a merge's question says it: "Checking…" while
// there is no prediction yet, clean, the files that will conflict, or why there is no preview.
// The sidebar's merge and the toolbar's pull by merge ask with it, and predict through one call.
#pragma once

#include "core/records/MergePrediction.h"
#include "core/records/RepoEntry.h"

#include <QCoro/QCoroTask>
#include <QString>

#include <memory>
#include <optional>
#include <stop_token>
#include <string>

namespace orvel {

class GitServiceProtocol;

// Nothing when git cannot tell and its reason has been said already.
QString mergeForecast(const std::optional<MergePrediction>& prediction, const std::string& branch,
                      const std::string& into);

// The prediction of merging `branch` into the checked-out branch; a failure to predict is a
// prediction that cannot tell, with the failure as its reason.
QCoro::Task<MergePrediction> predictMergeOf(std::shared_ptr<GitServiceProtocol> service, RepoEntry repo,
                                            std::string branch, std::stop_token cancellation);

} // namespace orvel
