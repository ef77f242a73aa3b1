// What a merge, cherry-pick, revert or rebase step will do before it runs: clean, or a stop on
// conflicts in some files, or no answer (git too old, an unreadable commit) with the reason.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace orvel {

struct MergePrediction {
    enum class Outcome { clean, conflicts, unknown };

    Outcome outcome = Outcome::unknown;
    std::vector<std::string> files; // the conflicted paths, sorted, each once
    // Why there is no answer, for Outcome::unknown; empty when it is not to be said again (git
    // too old to predict is said once).
    std::string reason;

    static MergePrediction clean() { return {Outcome::clean, {}, {}}; }
    static MergePrediction unknown(std::string why) { return {Outcome::unknown, {}, std::move(why)}; }

    bool operator==(const MergePrediction&) const = default;
};

// The conflicted files as a message lists them: the first few joined by ", ", then "…" for the rest.
inline std::string shownFiles(const std::vector<std::string>& files, std::size_t limit = 5) {
    std::string text;
    for (std::size_t i = 0; i < files.size() && i < limit; ++i)
        text += (i ? ", " : "") + files[i];
    if (files.size() > limit)
        text += ", …";
    return text;
}

} // namespace orvel
