// Raw values of the rebase actions.
#include "core/records/RebasePlan.h"

namespace orvel {

std::string_view rawValue(RebaseAction action) {
    switch (action) {
    case RebaseAction::pick:
        return "pick";
    case RebaseAction::reword:
        return "reword";
    case RebaseAction::edit:
        return "edit";
    case RebaseAction::squash:
        return "squash";
    case RebaseAction::fixup:
        return "fixup";
    case RebaseAction::drop:
        return "drop";
    case RebaseAction::exec:
        return "exec";
    }
    return "pick";
}

std::optional<RebaseAction> rebaseActionFromRawValue(std::string_view raw) {
    for (const RebaseAction action : allRebaseActions) {
        if (rawValue(action) == raw)
            return action;
    }
    return std::nullopt;
}

} // namespace orvel
