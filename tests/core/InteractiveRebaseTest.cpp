// The interactive rebase run against real repositories through the service: plans that pick,
// reorder, reword, squash, fix up, drop and exec; stops on conflicts, edits and failing commands;
// failed runs that change nothing; and a temporary directory that is empty again after every run.
#include "RealGitService.h"
#include "core/commands/InteractiveRebaseCommands.h"
#include "core/service/GitServiceError.h"
#include "core/support/Text.h"
#include "support/Await.h"
#include "support/GitFixture.h"
#include "support/PrivateTemporaryDirectory.h"
#include "support/ServiceError.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <map>
#include <set>
#include <sys/resource.h>

using namespace orvel;
namespace fs = std::filesystem;
using test::await;

namespace {

// A message that a shell would mangle or run if it were quoted wrongly. git's message cleanup
// leaves it alone (no comment line, no doubled or trailing blank line) and adds a final newline.
const std::string hostileMessage = "Say 'it''s' \"so\" $(touch pwned) `touch pwned`\n\n"
                                   "back\\slash \\n %s %% ${HOME} '\\'' ; touch pwned ;\nlast line";

// What the service says of a run that git refused or that left no rebase behind, whatever git said.
const std::string rebaseFailed = "git rebase failed: Rebase failed unexpectedly";

class InteractiveRebase : public test::PrivateTemporaryDirectoryTest {
  protected:
    void SetUp() override {
        PrivateTemporaryDirectoryTest::SetUp();
        test::git(work.path(), {"init", "-q", "-b", "main", repoPath});
        base = commit("base");
        repo = await(git.service.open(repoPath));
    }
    void TearDown() override {
        PrivateTemporaryDirectoryTest::TearDown();
        for (const fs::path& dir : {fs::path(work.path()), fs::path(repoPath), fs::current_path()})
            EXPECT_FALSE(fs::exists(dir / "pwned")) << "a message was run by the shell";
    }

    std::string run(const std::vector<std::string>& arguments) const {
        return test::git(repoPath, arguments);
    }
    std::string commit(const std::string& name) const {
        test::writeFile(repoPath + "/" + name + ".txt", name + "\n");
        run({"add", "-A"});
        run({"commit", "-q", "-m", name});
        return head();
    }
    std::string head() const { return trimmed(run({"rev-parse", "HEAD"})); }
    // The message of `revision` byte for byte, as the commit object holds it.
    std::string message(const std::string& revision) const {
        const std::string object = run({"cat-file", "commit", revision});
        return object.substr(object.find("\n\n") + 2);
    }
    std::string subjectsSinceBase() const { return run({"log", "--format=%s", base + "..HEAD"}); }
    std::vector<RebaseTodoEntry> todo() { return await(git.service.rebaseTodoList(repo, base)); }
    InteractiveRebaseResult rebase(std::vector<RebaseTodoEntry> entries, std::string onto = {}) {
        return await(
            git.service.interactiveRebase(repo, RebasePlan{onto.empty() ? base : onto, std::move(entries)}));
    }
    RepositoryState state() { return await(git.service.open(repoPath)).state; }

    // Quotes and $() in the repository path must survive the reword script's read of its step.
    const std::string repoPath = work / "it's \"our\" $(touch pwned) repo";
    // squash asks an editor for the combined message: with none anywhere, git's own is kept and
    // nothing waits on a terminal. The reword script, where a plan has one, takes its place.
    test::ScopedEnvironment noGitEditor{"GIT_EDITOR", std::nullopt};
    test::ScopedEnvironment noEditor{"EDITOR", std::nullopt};
    test::RealGitService git;
    RepoEntry repo;
    std::string base;
};

RebaseTodoEntry execRow(std::string command) {
    RebaseTodoEntry entry;
    entry.id = QUuid::createUuid();
    entry.action = RebaseAction::exec;
    entry.execCommand = std::move(command);
    return entry;
}

} // namespace

TEST_F(InteractiveRebase, TodoListReadsCommitsOldestFirstAndPicksRunToSuccess) {
    commit("a"), commit("b"), commit("c");
    const std::string before = head();
    auto rows = todo();
    ASSERT_EQ(rows.size(), 3u);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(rows[i].subject, std::string(1, static_cast<char>('a' + i)));
        EXPECT_EQ(rows[i].hash, trimmed(run({"rev-parse", "--short", "HEAD~" + std::to_string(2 - i)})));
        EXPECT_EQ(rows[i].action, RebaseAction::pick);
        EXPECT_FALSE(rows[i].id.isNull());
    }
    EXPECT_NE(rows[0].id, rows[1].id);
    EXPECT_TRUE(await(git.service.rebaseTodoList(repo, "HEAD")).empty());

    EXPECT_TRUE(std::holds_alternative<rebase::Success>(rebase(rows)));
    EXPECT_EQ(head(), before) << "unchanged picks replay the same commits";

    std::reverse(rows.begin(), rows.end());
    EXPECT_TRUE(std::holds_alternative<rebase::Success>(rebase(rows)));
    EXPECT_EQ(subjectsSinceBase(), "a\nb\nc\n");
    EXPECT_EQ(state(), RepositoryState::clean);
}

TEST_F(InteractiveRebase, RewordedMessagesArriveByteExactAndNothingInThemRuns) {
    commit("a"), commit("b"), commit("c");
    auto rows = todo();
    for (auto& row : rows)
        row.action = RebaseAction::reword;
    rows[0].rewordMessage = hostileMessage;
    rows[2].rewordMessage = "c: it's renamed\nwith a second line";
    // rows[1] has no message: the script leaves git's own in place.
    EXPECT_TRUE(std::holds_alternative<rebase::Success>(rebase(rows)));
    EXPECT_EQ(message("HEAD~2"), hostileMessage + "\n");
    EXPECT_EQ(message("HEAD~1"), "b\n");
    EXPECT_EQ(message("HEAD"), "c: it's renamed\nwith a second line\n");

    // A record without its git directory reads the step below "<path>/.git/".
    repo = test::RealGitService::repoAt(repoPath);
    rows = todo();
    rows[1].action = RebaseAction::reword;
    // Bytes that are not UTF-8 reach git untouched; git stores them as their Latin-1 reading, as it
    // does for any commit message.
    rows[1].rewordMessage = "b's second name \xff\xfe";
    EXPECT_TRUE(std::holds_alternative<rebase::Success>(rebase(rows)));
    EXPECT_EQ(message("HEAD~1"), "b's second name \xc3\xbf\xc3\xbe\n");
    EXPECT_EQ(message("HEAD"), "c: it's renamed\nwith a second line\n");
    EXPECT_EQ(message("HEAD~2"), hostileMessage + "\n");
}

TEST_F(InteractiveRebase, ConflictStopReportsTheStoppedCommitItsStepAndTheFiles) {
    test::writeFile(repoPath + "/file", "base\n");
    base = commit("shared");
    run({"checkout", "-q", "-b", "topic"});
    commit("a");
    test::writeFile(repoPath + "/file", "topic\n");
    const std::string conflicting = commit("b");
    run({"checkout", "-q", "main"});
    test::writeFile(repoPath + "/file", "main\n");
    commit("main");
    run({"checkout", "-q", "topic"});

    auto rows = await(git.service.rebaseTodoList(repo, "main"));
    ASSERT_EQ(rows.size(), 2u);
    rows.push_back(execRow("true"));
    const auto result = rebase(rows, "main");
    ASSERT_TRUE(std::holds_alternative<RebaseStop>(result));
    const auto& stop = std::get<RebaseStop>(result);
    EXPECT_EQ(std::tie(stop.stoppedAtHash, stop.currentStep, stop.totalSteps), std::tuple(conflicting, 2, 3));
    ASSERT_EQ(stop.files.size(), 1u);
    EXPECT_EQ(stop.files[0].path, "file");
    EXPECT_EQ(state(), RepositoryState::rebasing);

    await(git.service.abortRebase(repo));
    EXPECT_EQ(head(), conflicting);
}

// git pauses at an edit row with exit 0 and at a failing exec with an error; both are edit stops
// with git's step counter, and the rebase goes on from there.
TEST_F(InteractiveRebase, EditAndAFailingExecAreEditStops) {
    commit("a"), commit("b"), commit("c");
    auto rows = todo();
    rows[1].action = RebaseAction::edit;
    const auto paused = rebase(rows);
    ASSERT_TRUE(std::holds_alternative<rebase::EditStop>(paused));
    const auto& edit = std::get<rebase::EditStop>(paused);
    EXPECT_EQ(std::tie(edit.currentStep, edit.totalSteps, edit.hash), std::tuple(2, 3, head()));
    EXPECT_EQ(state(), RepositoryState::rebasing);
    EXPECT_TRUE(std::holds_alternative<rebase::Success>(await(git.service.rebaseContinue(repo))));
    EXPECT_EQ(subjectsSinceBase(), "c\nb\na\n");

    rows = todo();
    rows.insert(rows.begin() + 1, execRow("false"));
    const auto result = rebase(rows);
    ASSERT_TRUE(std::holds_alternative<rebase::EditStop>(result));
    const auto& stop = std::get<rebase::EditStop>(result);
    EXPECT_EQ(std::tie(stop.currentStep, stop.totalSteps, stop.hash), std::tuple(2, 4, ""));
    await(git.service.abortRebase(repo));
}

TEST_F(InteractiveRebase, DropSquashFixupAndExecRewriteHistoryAsGitDoes) {
    commit("a"), commit("b"), commit("c"), commit("d"), commit("e");
    auto rows = todo();
    rows[1].action = RebaseAction::squash;
    rows[2].action = RebaseAction::fixup;
    rows[3].action = RebaseAction::drop;
    rows.insert(rows.begin() + 4, execRow("touch exec-ran"));
    EXPECT_TRUE(std::holds_alternative<rebase::Success>(rebase(rows)));

    EXPECT_EQ(subjectsSinceBase(), "e\na\n");
    EXPECT_EQ(message("HEAD~1"), "a\n\nb\n") << "squash joins the messages, fixup drops its own";
    EXPECT_EQ(run({"show", "--format=", "--name-only", "HEAD~1"}), "a.txt\nb.txt\nc.txt\n");
    EXPECT_FALSE(fs::exists(repoPath + "/d.txt"));
    EXPECT_TRUE(fs::exists(repoPath + "/exec-ran"));
}

TEST_F(InteractiveRebase, RefusedAndFailedRunsChangeNothing) {
    commit("a"), commit("b");
    const std::string before = head();
    const auto rows = todo();

    // git refuses an unknown target and an empty plan before a rebase exists.
    EXPECT_EQ(test::thrownText([&] { rebase(rows, "no-such-branch"); }), rebaseFailed);
    EXPECT_EQ(test::thrownText([&] { rebase({}); }), rebaseFailed);

    test::writeFile(repoPath + "/a.txt", "local change\n");
    auto reordered = rows;
    std::swap(reordered[0], reordered[1]);
    EXPECT_EQ(test::thrownText([&] { rebase(reordered); }), rebaseFailed);
    EXPECT_EQ(test::readFile(repoPath + "/a.txt"), "local change\n");
    EXPECT_EQ(head(), before);
    EXPECT_EQ(state(), RepositoryState::clean);
}

// What git is handed, seen from inside the call: a private todo file, executable scripts, and a
// message editor only for a plan that rewords.
class InteractiveRebaseFiles : public test::PrivateTemporaryDirectoryTest {
  protected:
    struct Watcher final : GitExecutorProtocol {
        std::string execute(const Arguments&, const std::string&) override { return {}; }
        std::string executeWithEnvironment(const Arguments& arguments, const std::string&,
                                           const Environment& environment) override {
            this->arguments = arguments;
            this->environment = environment;
            modes.clear();
            for (const auto& file :
                 fs::directory_iterator(fs::path(environment.at("GIT_SEQUENCE_EDITOR")).parent_path())) {
                std::string name = file.path().filename().string();
                for (const char* prefix :
                     {"orvel-rebase-todo-", "orvel-rebase-editor-", "orvel-reword-editor-"})
                    if (name.starts_with(prefix))
                        name = prefix;
                modes[name] = static_cast<unsigned>(file.status().permissions() & fs::perms::all);
            }
            const std::string script = test::readFile(environment.at("GIT_SEQUENCE_EDITOR"));
            todoText = test::readFile(
                script.substr(script.find('\'') + 1, script.rfind('\'') - script.find('\'') - 1));
            throw GitServiceError::commandFailed("rebase", "error: git's own words");
        }
        std::string resolvedGitPath() override { return "/usr/bin/git"; }
        std::string gitVersion() override { return "git version 2.39.5"; }
        void setGitPathOverride(const std::optional<std::string>&) override {}

        Arguments arguments;
        Environment environment;
        std::map<std::string, unsigned> modes; // by the prefix of the name
        std::string todoText;
    } git;
};

TEST_F(InteractiveRebaseFiles, OnlyARewordingPlanGetsAMessageEditor) {
    RebaseTodoEntry pick{QUuid::createUuid(), RebaseAction::pick, "a1b2c3d", "one", {}, {}};
    const RepoEntry repo = test::RealGitService::repoAt(work.path());
    const auto runPlan = [&](std::vector<RebaseTodoEntry> entries) {
        return test::thrownText([&] {
            InteractiveRebaseCommands::interactiveRebase(git, repo, {"main", std::move(entries)});
        });
    };

    // git's words give way to the missing rebase state.
    EXPECT_EQ(runPlan({pick}), rebaseFailed);
    EXPECT_EQ(git.arguments, (GitExecutorProtocol::Arguments{"rebase", "--interactive", "--", "main"}));
    EXPECT_EQ(git.environment.size(), 1u);
    EXPECT_TRUE(git.environment.at("GIT_SEQUENCE_EDITOR").starts_with(tmp.path() + "/orvel-rebase-editor-"));
    EXPECT_TRUE(git.environment.at("GIT_SEQUENCE_EDITOR").ends_with(".sh"));
    EXPECT_EQ(git.modes, (std::map<std::string, unsigned>{{"orvel-rebase-editor-", 0755},
                                                          {"orvel-rebase-todo-", 0600}}));
    EXPECT_EQ(git.todoText, "pick a1b2c3d one\n");

    RebaseTodoEntry reword = pick;
    reword.action = RebaseAction::reword;
    reword.rewordMessage = "new";
    EXPECT_EQ(runPlan({reword}), rebaseFailed);
    EXPECT_TRUE(git.environment.at("GIT_EDITOR").starts_with(tmp.path() + "/orvel-reword-editor-"));
    EXPECT_EQ(git.modes, (std::map<std::string, unsigned>{{"orvel-rebase-editor-", 0755},
                                                          {"orvel-rebase-todo-", 0600},
                                                          {"orvel-reword-editor-", 0755}}));
}

// A file that cannot be written whole (here: past the process's file size limit) fails the run
// before git starts, and the files made before it go as well.
TEST_F(InteractiveRebaseFiles, AFailedWriteOfAnyFileLeavesNoneBehind) {
    const std::string longText(64 * 1024, 'x');
    RebaseTodoEntry longSubject{QUuid::createUuid(), RebaseAction::pick, "a1b2c3d", longText, {}, {}};
    RebaseTodoEntry longReword{QUuid::createUuid(), RebaseAction::reword, "a1b2c3d", "one", longText, {}};
    // The todo file, the sequence editor (after an empty todo file), the reword script.
    const std::vector<std::pair<std::vector<RebaseTodoEntry>, rlim_t>> cases{
        {{longSubject}, 4096}, {{}, 16}, {{longReword}, 4096}};
    const RepoEntry repo = test::RealGitService::repoAt(work.path());
    rlimit saved{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &saved), 0);
    const auto previousHandler = std::signal(SIGXFSZ, SIG_IGN);
    for (const auto& [entries, limit] : cases) {
        const rlimit small{limit, saved.rlim_max};
        ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
        EXPECT_THROW(InteractiveRebaseCommands::interactiveRebase(git, repo, {"main", entries}),
                     fs::filesystem_error);
        ::setrlimit(RLIMIT_FSIZE, &saved);
        EXPECT_TRUE(git.arguments.empty()) << "git ran after a failed write";
        EXPECT_TRUE(temporaryFiles().empty()) << *temporaryFiles().begin();
    }
    std::signal(SIGXFSZ, previousHandler);
}
