// The texts an interactive rebase gives git: the todo list, the reword messages by step, and the
// editor scripts, checked as text and run by sh as git runs them. The run through git itself is in
// InteractiveRebaseTest.
#include "core/commands/RebaseTodo.h"
#include "support/GitFixture.h"

#include <QProcess>

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>

using namespace orvel;
using test::TempDir;

namespace {

RebaseTodoEntry row(RebaseAction action, std::string hash, std::string subject) {
    RebaseTodoEntry entry;
    entry.id = QUuid::createUuid();
    entry.action = action;
    entry.hash = std::move(hash);
    entry.subject = std::move(subject);
    return entry;
}

RebaseTodoEntry execRow(std::optional<std::string> command) {
    RebaseTodoEntry entry = row(RebaseAction::exec, "", "");
    entry.execCommand = std::move(command);
    return entry;
}

RebaseTodoEntry rewordRow(std::string hash, std::string subject, std::optional<std::string> message) {
    RebaseTodoEntry entry = row(RebaseAction::reword, std::move(hash), std::move(subject));
    entry.rewordMessage = std::move(message);
    return entry;
}

// A message that a shell would mangle or execute if it were quoted wrongly.
const std::string hostileMessage = "Fix 'single' and \"double\" quotes\n\n"
                                   "$(touch pwned) `touch pwned` back\\slash \\n %s %%\n"
                                   "it's the third line";

// Runs `script` with sh as git does, giving it `argument` as "$1"; returns the exit code.
int runWithSh(const std::string& script, const std::string& argument) {
    QProcess sh;
    sh.start("/bin/sh", {QString::fromStdString(script), QString::fromStdString(argument)});
    if (!sh.waitForFinished(30000))
        return -1;
    return sh.exitStatus() == QProcess::NormalExit ? sh.exitCode() : -1;
}

} // namespace

TEST(RebaseActionTest, RawValuesRoundTripInMenuOrder) {
    std::string joined;
    for (const RebaseAction action : allRebaseActions) {
        joined += std::string(rawValue(action)) + ",";
        EXPECT_EQ(rebaseActionFromRawValue(rawValue(action)), action);
    }
    EXPECT_EQ(joined, "pick,reword,edit,squash,fixup,drop,exec,");
    EXPECT_EQ(rebaseActionFromRawValue("Pick"), std::nullopt);
    EXPECT_EQ(rebaseActionFromRawValue("p"), std::nullopt);
}

TEST(RebaseTodoTextTest, OneLinePerEntryWithDropAndExecWrittenOut) {
    const std::vector<RebaseTodoEntry> entries{
        row(RebaseAction::pick, "a1b2c3d", "First commit"),
        rewordRow("b2c3d4e", "Second", "ignored in the todo"),
        row(RebaseAction::edit, "c3d4e5f", "Third: with 'quotes' and $(x)"),
        row(RebaseAction::squash, "d4e5f6a", "squash! Third"),
        row(RebaseAction::fixup, "e5f6a7b", "fixup! First commit"),
        row(RebaseAction::drop, "f6a7b8c", "Dropped one"),
        execRow("make test && echo \"done\""),
        execRow(std::nullopt),
        execRow(""),
    };
    EXPECT_EQ(RebaseTodo::todoFileContents(entries), "pick a1b2c3d First commit\n"
                                                     "reword b2c3d4e Second\n"
                                                     "edit c3d4e5f Third: with 'quotes' and $(x)\n"
                                                     "squash d4e5f6a squash! Third\n"
                                                     "fixup e5f6a7b fixup! First commit\n"
                                                     "drop f6a7b8c Dropped one\n"
                                                     "exec make test && echo \"done\"\n"
                                                     "exec \n"
                                                     "exec \n");
    EXPECT_EQ(RebaseTodo::todoFileContents({}), "");
}

TEST(RebaseTodoTextTest, RewordMessagesAreKeyedByStepCountingEveryRow) {
    const std::vector<RebaseTodoEntry> entries{
        rewordRow("a1", "one", hostileMessage), // step 1
        execRow("true"),                        // step 2
        row(RebaseAction::drop, "b2", "two"),   // step 3
        rewordRow("c3", "three", "Three"),      // step 4
        rewordRow("d4", "four", std::nullopt),  // no message: git's own is kept
        row(RebaseAction::pick, "e5", "five"),
    };
    const auto messages = RebaseTodo::rewordMessages(entries);
    EXPECT_EQ(messages, (std::map<int, std::string>{{1, hostileMessage}, {4, "Three"}}));

    // A message on a row that is no longer a reword is not used.
    auto changed = entries;
    changed[0].action = RebaseAction::pick;
    EXPECT_EQ(RebaseTodo::rewordMessages(changed), (std::map<int, std::string>{{4, "Three"}}));
}

TEST(RebaseTodoScriptTest, ScriptTextsEscapeTheGitDirectoryAndMessagesButNotTheTodoPath) {
    EXPECT_EQ(RebaseTodo::sequenceEditorScript("/tmp/orvel-rebase-todo-1"),
              "#!/bin/sh\ncp '/tmp/orvel-rebase-todo-1' \"$1\"\n");
    EXPECT_EQ(RebaseTodo::rewordEditorScript("/home/o'brien/repo/.git/", {{1, "it's"}, {3, "plain"}}),
              "#!/bin/sh\n"
              "STEP=$(cat '/home/o'\\''brien/repo/.git/rebase-merge/msgnum' 2>/dev/null || echo '0')\n"
              "case \"$STEP\" in\n"
              "  1) printf '%s' 'it'\\''s' > \"$1\" ;;\n"
              "  3) printf '%s' 'plain' > \"$1\" ;;\n"
              "esac\n"
              "exit 0\n");
}

// The reword script run by sh, as git runs it, in a git directory whose path holds a quote.
TEST(RebaseTodoScriptTest, RewordScriptWritesHostileMessagesByteForByte) {
    TempDir dir;
    const std::string gitDir = dir / "it's \"a\" $(dir)/.git/";
    std::filesystem::create_directories(gitDir + "rebase-merge");
    const std::string script = dir / "reword.sh";
    test::writeScript(script,
                      RebaseTodo::rewordEditorScript(gitDir, {{2, hostileMessage}, {5, "  spaced\n\n"}}));
    const std::string messageFile = dir / "COMMIT_EDITMSG";

    const auto runAtStep = [&](const std::optional<std::string>& msgnum) {
        if (msgnum)
            test::writeFile(gitDir + "rebase-merge/msgnum", *msgnum);
        else
            std::filesystem::remove(gitDir + "rebase-merge/msgnum");
        test::writeFile(messageFile, "git's prepared message\n");
        EXPECT_EQ(runWithSh(script, messageFile), 0);
        return test::readFile(messageFile);
    };

    EXPECT_EQ(runAtStep("2\n"), hostileMessage);
    EXPECT_EQ(runAtStep("5\n"), "  spaced\n\n");
    EXPECT_EQ(runAtStep("3\n"), "git's prepared message\n");
    EXPECT_EQ(runAtStep(std::nullopt), "git's prepared message\n");
    EXPECT_FALSE(std::filesystem::exists(dir / "pwned"));
    EXPECT_FALSE(std::filesystem::exists(std::filesystem::current_path() / "pwned"));
}
