#include "core/commands/MergePredictionCache.h"

namespace orvel {

std::optional<MergePredictionCache::Pick> MergePredictionCache::find(const std::string& ontoTree,
                                                                     const std::string& commit) const {
    const std::lock_guard lock(mutex_);
    const auto found = picks_.find({ontoTree, commit});
    if (found == picks_.end())
        return std::nullopt;
    return found->second;
}

void MergePredictionCache::store(const std::string& ontoTree, const std::string& commit, Pick pick) {
    const std::lock_guard lock(mutex_);
    picks_.insert_or_assign({ontoTree, commit}, std::move(pick));
}

} // namespace orvel
