// The working list of an interactive rebase's plan while the user edits it: actions, order, exec
// rows, reworded messages and autosquash. Nothing reaches git until the plan is started.
#pragma once

#include "core/records/RebasePlan.h"

#include <QUuid>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace orvel {

// A step added to run a command. It stands for no commit, so it never takes a commit's action; a
// commit row given the exec action stays a commit row and can be given its own action back.
bool isExecStep(const RebaseTodoEntry& entry);

class RebasePlanModel {
  public:
    RebasePlanModel(std::string ontoBranch, std::vector<RebaseTodoEntry> initialEntries);

    const std::string& ontoBranch() const { return ontoBranch_; }
    const std::vector<RebaseTodoEntry>& initialEntries() const { return initialEntries_; }
    const std::vector<RebaseTodoEntry>& entries() const { return entries_; }
    const std::optional<QUuid>& rewordingEntryID() const { return rewordingEntryID_; }
    const std::string& rewordText() const { return rewordText_; }
    void setRewordText(std::string text) { rewordText_ = std::move(text); }

    // Called by start() with the plan to run, and by cancel().
    std::function<void(RebasePlan)> onStart;
    std::function<void()> onCancel;

    // Any of the seven actions for a commit row, whatever its action was; an exec step keeps its own.
    void setAction(const QUuid& id, RebaseAction action);
    // Moves the row at `from` so that it ends at `to`; positions outside the list do nothing.
    void move(std::size_t from, std::size_t to);
    // Appends an exec row with an empty command; the user drags it to where it is to run.
    void addExec();
    // The command of a row whose action is exec.
    void setExecCommand(const QUuid& id, std::string command);
    // Removes an exec step; a commit row stays, whatever its action.
    void removeExec(const QUuid& id);

    // Starts editing a commit row's message from its reworded message, or its subject.
    void beginReword(const QUuid& id);
    // Stores the edited message, trimmed, and makes the row a reword.
    void saveReword();
    void cancelReword();

    // Puts every "fixup! " and "squash! " row right behind the row whose subject it names.
    void autosquash();

    // At least one row does something other than drop.
    bool canStart() const;
    RebasePlan plan() const;
    // Hands the plan to onStart when it can start; returns whether it did.
    bool start();
    void cancel();

  private:
    RebaseTodoEntry* find(const QUuid& id);

    std::string ontoBranch_;
    std::vector<RebaseTodoEntry> initialEntries_;
    std::vector<RebaseTodoEntry> entries_;
    std::optional<QUuid> rewordingEntryID_;
    std::string rewordText_;
};

} // namespace orvel
