// Editing operations of an interactive rebase's plan.
#include "merge/RebasePlanModel.h"

#include "core/support/Text.h"

#include <algorithm>
#include <map>
#include <string_view>

namespace orvel {
namespace {

constexpr std::string_view fixupPrefix = "fixup! ";
constexpr std::string_view squashPrefix = "squash! ";

} // namespace

bool isExecStep(const RebaseTodoEntry& entry) {
    return entry.hash.empty();
}

RebasePlanModel::RebasePlanModel(std::string ontoBranch, std::vector<RebaseTodoEntry> initialEntries)
    : ontoBranch_(std::move(ontoBranch)), initialEntries_(std::move(initialEntries)),
      entries_(initialEntries_) {}

RebaseTodoEntry* RebasePlanModel::find(const QUuid& id) {
    const auto it =
        std::find_if(entries_.begin(), entries_.end(), [&](const auto& entry) { return entry.id == id; });
    return it == entries_.end() ? nullptr : &*it;
}

void RebasePlanModel::setAction(const QUuid& id, RebaseAction action) {
    RebaseTodoEntry* entry = find(id);
    if (entry && !isExecStep(*entry))
        entry->action = action;
}

void RebasePlanModel::move(std::size_t from, std::size_t to) {
    if (from >= entries_.size() || to >= entries_.size() || from == to)
        return;
    const auto first = entries_.begin();
    if (from < to)
        std::rotate(first + from, first + from + 1, first + to + 1);
    else
        std::rotate(first + to, first + from, first + from + 1);
}

void RebasePlanModel::addExec() {
    RebaseTodoEntry entry;
    entry.id = QUuid::createUuid();
    entry.action = RebaseAction::exec;
    entry.execCommand = std::string();
    entries_.push_back(std::move(entry));
}

void RebasePlanModel::setExecCommand(const QUuid& id, std::string command) {
    RebaseTodoEntry* entry = find(id);
    if (entry && entry->action == RebaseAction::exec)
        entry->execCommand = std::move(command);
}

void RebasePlanModel::removeExec(const QUuid& id) {
    std::erase_if(entries_,
                  [&](const auto& entry) { return entry.id == id && isExecStep(entry); });
}

void RebasePlanModel::beginReword(const QUuid& id) {
    const RebaseTodoEntry* entry = find(id);
    // An exec step is a command, not a commit: it has no message to edit.
    if (!entry || isExecStep(*entry))
        return;
    rewordingEntryID_ = id;
    rewordText_ = entry->rewordMessage.value_or(entry->subject);
}

void RebasePlanModel::saveReword() {
    if (rewordingEntryID_) {
        if (RebaseTodoEntry* entry = find(*rewordingEntryID_)) {
            entry->rewordMessage = trimmed(rewordText_);
            entry->action = RebaseAction::reword;
        }
    }
    rewordingEntryID_.reset();
}

void RebasePlanModel::cancelReword() {
    rewordingEntryID_.reset();
}

void RebasePlanModel::autosquash() {
    std::vector<RebaseTodoEntry> result;
    std::vector<RebaseTodoEntry> pending;
    std::map<std::string, std::size_t> positions;
    result.reserve(entries_.size());

    for (const RebaseTodoEntry& entry : entries_) {
        if (entry.subject.starts_with(fixupPrefix)) {
            pending.push_back(entry);
            pending.back().action = RebaseAction::fixup;
        } else if (entry.subject.starts_with(squashPrefix)) {
            pending.push_back(entry);
            pending.back().action = RebaseAction::squash;
        } else {
            // An exec row has no subject and is never a target.
            if (entry.action != RebaseAction::exec)
                positions[entry.subject] = result.size();
            result.push_back(entry);
        }
    }

    // Backwards, so that several rows naming one target keep their order right behind it.
    for (auto it = pending.rbegin(); it != pending.rend(); ++it) {
        const std::string_view prefix = it->action == RebaseAction::fixup ? fixupPrefix : squashPrefix;
        const std::string target = it->subject.substr(prefix.size());
        const auto found = positions.find(target);
        if (found == positions.end()) {
            result.push_back(std::move(*it));
            continue;
        }
        const std::size_t p = found->second;
        result.insert(result.begin() + static_cast<std::ptrdiff_t>(p + 1), std::move(*it));
        for (auto& [subject, position] : positions) {
            if (position > p)
                ++position;
        }
    }
    entries_ = std::move(result);
}

bool RebasePlanModel::canStart() const {
    return std::any_of(entries_.begin(), entries_.end(),
                       [](const auto& entry) { return entry.action != RebaseAction::drop; });
}

RebasePlan RebasePlanModel::plan() const {
    return {ontoBranch_, entries_};
}

bool RebasePlanModel::start() {
    if (!canStart())
        return false;
    if (onStart)
        onStart(plan());
    return true;
}

void RebasePlanModel::cancel() {
    if (onCancel)
        onCancel();
}

} // namespace orvel
