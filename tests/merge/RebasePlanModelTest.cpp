// Editing an interactive rebase's plan: actions, order, exec rows, rewording, autosquash, start.
#include "merge/RebasePlanModel.h"
#include "core/commands/RebaseTodo.h"

#include <gtest/gtest.h>

using namespace orvel;

namespace {

// "hash:action" for every row, to read orders and actions at a glance.
std::string summary(const RebasePlanModel& model) {
    std::string text;
    for (const auto& entry : model.entries())
        text += (text.empty() ? "" : " ") + (entry.hash.empty() ? "<exec>" : entry.hash) + ":" +
                std::string(rawValue(entry.action));
    return text;
}

std::vector<RebaseTodoEntry> entriesOf(const std::vector<std::pair<std::string, std::string>>& rows) {
    std::vector<RebaseTodoEntry> entries;
    for (const auto& [hash, subject] : rows)
        entries.push_back(
            {QUuid::createUuid(), RebaseAction::pick, hash, subject, std::nullopt, std::nullopt});
    return entries;
}

RebasePlanModel modelOf(const std::vector<std::pair<std::string, std::string>>& rows) {
    return RebasePlanModel("main", entriesOf(rows));
}

} // namespace

TEST(RebasePlanModelTest, StartsFromTheInitialEntriesAndHandsThePlanOverWhenSomethingBesidesDropRemains) {
    auto model = modelOf({{"a1", "one"}, {"b2", "two"}});
    EXPECT_EQ(model.entries(), model.initialEntries());
    model.setAction(model.entries()[1].id, RebaseAction::edit);
    EXPECT_EQ(model.initialEntries()[1].action, RebaseAction::pick);

    std::optional<RebasePlan> started;
    bool cancelled = false;
    model.onStart = [&](RebasePlan plan) { started = std::move(plan); };
    model.onCancel = [&] { cancelled = true; };
    EXPECT_TRUE(model.start());
    ASSERT_TRUE(started);
    EXPECT_EQ(started->onto, "main");
    EXPECT_EQ(started->entries, model.entries());
    EXPECT_EQ(RebaseTodo::todoFileContents(started->entries), "pick a1 one\nedit b2 two\n");
    model.cancel();
    EXPECT_TRUE(cancelled);

    // It starts only when something besides drop remains.
    model = modelOf({{"a1", "one"}, {"b2", "two"}});
    for (const auto& entry : model.initialEntries())
        model.setAction(entry.id, RebaseAction::drop);
    EXPECT_FALSE(model.canStart());
    bool called = false;
    model.onStart = [&](RebasePlan) { called = true; };
    EXPECT_FALSE(model.start());
    EXPECT_FALSE(called);

    model.addExec();
    EXPECT_TRUE(model.canStart());
    model.removeExec(model.entries().back().id);
    EXPECT_FALSE(model.canStart());
    model.setAction(model.entries()[0].id, RebaseAction::squash); // git judges a leading squash
    EXPECT_TRUE(model.canStart());
    EXPECT_FALSE(RebasePlanModel("main", {}).canStart());
}

TEST(RebasePlanModelTest, SetActionTakesEveryActionButLeavesExecStepsAndUnknownIds) {
    // A commit row made exec stays a commit row: it can take every action back.
    for (const RebaseAction first : allRebaseActions)
        for (const RebaseAction then : allRebaseActions) {
            auto model = modelOf({{"a1", "one"}});
            model.setAction(model.entries()[0].id, first);
            model.setAction(model.entries()[0].id, then);
            EXPECT_EQ(rawValue(model.entries()[0].action), rawValue(then))
                << rawValue(first) << " then " << rawValue(then);
        }

    // Remove Exec leaves a commit row made exec in the plan; an added exec step takes no action.
    auto model = modelOf({{"a1", "one"}, {"b2", "two"}});
    model.setAction(model.entries()[0].id, RebaseAction::exec);
    model.removeExec(model.entries()[0].id);
    model.addExec();
    model.setAction(model.entries().back().id, RebaseAction::pick);
    model.setAction(QUuid::createUuid(), RebaseAction::drop);
    EXPECT_EQ(summary(model), "a1:exec b2:pick <exec>:exec");
    EXPECT_EQ(model.entries()[0].subject, "one");
}

TEST(RebasePlanModelTest, MoveLeavesTheRowAtTheTargetPosition) {
    auto model = modelOf({{"a", "a"}, {"b", "b"}, {"c", "c"}, {"d", "d"}});
    model.move(0, 2);
    EXPECT_EQ(summary(model), "b:pick c:pick a:pick d:pick");
    model.move(3, 0);
    EXPECT_EQ(summary(model), "d:pick b:pick c:pick a:pick");
    model.move(1, 1);
    model.move(4, 0);
    model.move(0, 4);
    EXPECT_EQ(summary(model), "d:pick b:pick c:pick a:pick");
}

TEST(RebasePlanModelTest, ExecRowsAreAddedAtTheEndEditedAndRemoved) {
    auto model = modelOf({{"a1", "one"}, {"b2", "two"}});
    model.addExec();
    const QUuid execId = model.entries().back().id;
    EXPECT_FALSE(execId.isNull());
    EXPECT_EQ(model.entries().back(),
              (RebaseTodoEntry{execId, RebaseAction::exec, "", "", std::nullopt, ""}));

    model.setExecCommand(execId, "make test && echo 'ok' $(date)");
    model.move(2, 1);
    EXPECT_EQ(RebaseTodo::todoFileContents(model.entries()),
              "pick a1 one\nexec make test && echo 'ok' $(date)\npick b2 two\n");

    // A commit row has no command, and removeExec leaves it in place.
    const QUuid commitId = model.entries()[0].id;
    model.setExecCommand(commitId, "rm -rf");
    model.removeExec(commitId);
    EXPECT_EQ(model.entries()[0].execCommand, std::nullopt);
    model.removeExec(execId);
    EXPECT_EQ(summary(model), "a1:pick b2:pick");
}

TEST(RebasePlanModelTest, RewordEditsFromTheMessageOrSubjectAndSavesTrimmed) {
    auto model = modelOf({{"a1", "one"}, {"b2", "two"}});
    const QUuid id = model.entries()[1].id;
    model.beginReword(id);
    EXPECT_EQ(model.rewordingEntryID(), id);
    EXPECT_EQ(model.rewordText(), "two");

    model.setRewordText(" \n\tNew 'title' \"x\" $(touch pwned)\n\nbody `id` \\\n \n");
    model.saveReword();
    EXPECT_EQ(model.rewordingEntryID(), std::nullopt);
    EXPECT_EQ(model.entries()[1].action, RebaseAction::reword); // it was pick
    EXPECT_EQ(model.entries()[1].rewordMessage, "New 'title' \"x\" $(touch pwned)\n\nbody `id` \\");
    EXPECT_EQ(RebaseTodo::rewordMessages(model.entries()),
              (std::map<int, std::string>{{2, "New 'title' \"x\" $(touch pwned)\n\nbody `id` \\"}}));

    model.beginReword(id);
    EXPECT_EQ(model.rewordText(), "New 'title' \"x\" $(touch pwned)\n\nbody `id` \\");
    model.setRewordText("discarded");
    model.cancelReword();
    EXPECT_EQ(model.rewordingEntryID(), std::nullopt);
    EXPECT_EQ(model.entries()[1].rewordMessage, "New 'title' \"x\" $(touch pwned)\n\nbody `id` \\");

    // Nothing to edit for an exec row or an unknown id; saving without an edit changes nothing.
    model.addExec();
    model.beginReword(model.entries().back().id);
    model.beginReword(QUuid::createUuid());
    EXPECT_EQ(model.rewordingEntryID(), std::nullopt);
    model.saveReword();
    EXPECT_EQ(summary(model), "a1:pick b2:reword <exec>:exec");
}

TEST(RebasePlanModelTest, AutosquashMovesFixupsAndSquashesBehindTheirTargets) {
    auto entries = entriesOf({{"f1", "fixup! A"},
                              {"a", "A"},
                              {"b", "B"},
                              {"s1", "squash! B"},
                              {"f2", "fixup! A"},
                              {"n", "fixup! fixup! A"},
                              {"u1", "fixup! Missing"},
                              {"m", "amend! B"},
                              {"c", "C"},
                              {"u2", "squash! Gone"}});
    entries[0].rewordMessage = "kept";
    entries[0].execCommand = "kept too";
    RebaseTodoEntry moved = entries[0];
    moved.action = RebaseAction::fixup;
    RebasePlanModel model("main", std::move(entries));
    model.autosquash();
    // Fixups of A keep their order; a nested fixup and a missing target go to the end, backwards.
    EXPECT_EQ(summary(model),
              "a:pick f1:fixup f2:fixup b:pick s1:squash m:pick c:pick u2:squash u1:fixup n:fixup");
    EXPECT_EQ(model.entries()[1], moved) << "the same row, with its message and command";
}

TEST(RebasePlanModelTest, AutosquashMatchesTheLaterOfTwoEqualSubjectsAndNeverAnExecRow) {
    auto model = modelOf({{"a1", "A"}, {"x", "X"}, {"a2", "A"}, {"f", "fixup! A"}, {"g", "fixup! "}});
    model.addExec();
    model.move(5, 0);
    model.autosquash();
    EXPECT_EQ(summary(model), "<exec>:exec a1:pick x:pick a2:pick f:fixup g:fixup");

    auto plain = modelOf({{"a", "A"}, {"b", "B"}});
    const auto before = plain.entries();
    plain.autosquash();
    EXPECT_EQ(plain.entries(), before);
}
