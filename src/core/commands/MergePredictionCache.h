// The picks a rebase prediction has worked out, kept between predictions of the same plan as the
// user edits it. A pick is keyed by the tree it goes onto and the full name of the picked commit:
// both name content, so an answer never goes stale, and the steps before the first changed row,
// which start from the same trees, are answered without running git. Safe to share between
// threads: a prediction still winding down after a cancel may store beside its successor.
#pragma once

#include "core/records/MergePrediction.h"

#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <utility>

namespace orvel {

class MergePredictionCache {
  public:
    struct Pick {
        std::string tree; // the tree the pick leaves, conflict markers included
        MergePrediction prediction;
    };

    std::optional<Pick> find(const std::string& ontoTree, const std::string& commit) const;
    void store(const std::string& ontoTree, const std::string& commit, Pick pick);

  private:
    mutable std::mutex mutex_;
    std::map<std::pair<std::string, std::string>, Pick> picks_;
};

} // namespace orvel
