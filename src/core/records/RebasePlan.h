// The plan of an interactive rebase: which commits run, in which order, with which action.
#pragma once

#include <QUuid>

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

enum class RebaseAction : char { pick, reword, edit, squash, fixup, drop, exec };

// Every action in menu order.
inline constexpr std::array<RebaseAction, 7> allRebaseActions{
    RebaseAction::pick,  RebaseAction::reword, RebaseAction::edit, RebaseAction::squash,
    RebaseAction::fixup, RebaseAction::drop,   RebaseAction::exec};

// The word git reads in a todo line ("pick", "reword", ...); it is also the serialised form.
std::string_view rawValue(RebaseAction action);
// The action of a raw value, or nothing for any other text.
std::optional<RebaseAction> rebaseActionFromRawValue(std::string_view raw);

// One line of the plan.
struct RebaseTodoEntry {
    QUuid id; // the row's identity
    RebaseAction action = RebaseAction::pick;
    std::string hash; // abbreviated, as "log --oneline" printed it; empty for an exec row
    std::string subject;
    std::optional<std::string> rewordMessage; // the whole new message of a reword row
    std::optional<std::string> execCommand;   // the shell command of an exec row

    bool operator==(const RebaseTodoEntry&) const = default;
};

struct RebasePlan {
    std::string onto;                     // the ref to rebase onto
    std::vector<RebaseTodoEntry> entries; // oldest first, in the order they are to run

    bool operator==(const RebasePlan&) const = default;
};

} // namespace orvel
