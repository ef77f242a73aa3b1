// What merging one branch into another will do, as a merge's question says it: "Checking…" while
// there is no prediction yet, clean, the files that will conflict, or why there is no preview.
// The sidebar's merge and the toolbar's pull by merge ask with it.
#pragma once

#include "core/records/MergePrediction.h"

#include <QString>

#include <optional>
#include <string>

namespace orvel {

// Nothing when git cannot tell and its reason has been said already.
QString mergeForecast(const std::optional<MergePrediction>& prediction, const std::string& branch,
                      const std::string& into);

} // namespace orvel
