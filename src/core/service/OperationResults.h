// The outcomes of operations that can end in a conflict instead of an error, and the small
// enumerations that choose how a pull or a reset runs.
#pragma once

#include "core/records/ConflictEntry.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace orvel {

// A path a discard could not change, with the reason. A folder holding a repository of its own is
// never deleted: its history would go with it.
struct DiscardFailure {
    std::string path;
    std::string reason;
    bool nestedRepository = false;
};

struct Conflicted {
    std::vector<ConflictEntry> files;
};

struct RebaseStop {
    std::string stoppedAtHash;
    int currentStep = 0;
    int totalSteps = 0;
    std::vector<ConflictEntry> files;
};

namespace operation {
struct Success {
    std::optional<std::string> commitHash;
};
} // namespace operation
using OperationResult = std::variant<operation::Success, Conflicted>;

namespace merge {
struct AlreadyUpToDate {};
struct FastForward {
    std::string newHead;
};
struct Merged {
    std::string commitHash;
};
} // namespace merge
using MergeResult = std::variant<merge::AlreadyUpToDate, merge::FastForward, merge::Merged, Conflicted>;

namespace rebase {
struct Success {};
struct AlreadyUpToDate {};
struct EditStop {
    std::string hash;
    int currentStep = 0;
    int totalSteps = 0;
};
} // namespace rebase
using RebaseResult = std::variant<rebase::Success, rebase::AlreadyUpToDate, RebaseStop>;
using InteractiveRebaseResult = std::variant<rebase::Success, RebaseStop, rebase::EditStop>;

enum class PullStrategy { merge, rebase, fastForwardOnly, useConfig };

enum class ResetMode { soft, mixed, hard, merge, keep };

} // namespace orvel
