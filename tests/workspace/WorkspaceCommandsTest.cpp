// The menu's and toolbar's commands on real repositories with a local bare origin: pull with each
// strategy (and a conflict), push and force push after the remote moved on, and creating a branch
// with each handling of local changes, with the working tree's bytes checked on every path.
#include "workspace/WorkspaceCommands.h"

#include "RemoteFixture.h"
#include "support/LogCapture.h"

#include <QRegularExpression>
#include <QSignalSpy>

#include <filesystem>

using namespace orvel;

namespace {

class Commands : public test::RemoteFixture {
  protected:
    WorkspaceCommands commands{model, QStringLiteral("menu")};
};

enum class History { behind, diverged, conflicting };

struct PullCase {
    PullStrategy strategy;
    History history;
    const char* toast;
    ToastType type;
};

} // namespace

TEST_F(Commands, PullWithEachStrategy) {
    const PullCase cases[] = {
        {PullStrategy::merge, History::diverged, "Pulled (merge)", ToastType::notice},
        {PullStrategy::rebase, History::diverged, "Pulled (merge)", ToastType::notice},
        {PullStrategy::fastForwardOnly, History::behind, "Pulled (fast-forward)", ToastType::notice},
        {PullStrategy::fastForwardOnly, History::diverged, "Pull failed: ", ToastType::error},
        {PullStrategy::useConfig, History::behind, "Pulled (fast-forward)", ToastType::notice},
        {PullStrategy::merge, History::conflicting, "Pull conflict in 1 file(s)", ToastType::error},
    };
    openLocal();
    int round = 0;
    for (const PullCase& pull : cases) {
        SCOPED_TRACE(round);
        local.git({"reset", "-q", "--hard", "origin/main"});
        const std::string name = "r" + std::to_string(++round);
        commitElsewhere(pull.history == History::conflicting ? "file.txt" : name + ".txt", name + " there\n");
        if (pull.history != History::behind) {
            local.write(pull.history == History::conflicting ? "file.txt" : name + "-local.txt",
                        name + " here\n");
            local.commitAll("local " + name);
        }
        run(commands.pull(pull.strategy));

        ASSERT_FALSE(model.toastManager().toasts().empty());
        EXPECT_TRUE(lastToast().startsWith(pull.toast)) << lastToast().toStdString();
        EXPECT_EQ(model.toastManager().toasts().back().type, pull.type);
        EXPECT_FALSE(model.activityMessage());
        if (pull.type == ToastType::notice)
            EXPECT_EQ(
                local.gitAllowingFailure({"merge-base", "--is-ancestor", "origin/main", "HEAD"}).exitCode, 0);
        if (pull.strategy == PullStrategy::rebase)
            EXPECT_EQ(local.rev("HEAD~1"), local.rev("origin/main"));
        if (pull.history == History::conflicting) {
            EXPECT_NE(local.read("file.txt").find("<<<<<<<"), std::string::npos);
            local.git({"merge", "--abort"});
        }
    }
}

TEST_F(Commands, PushThenForcePushOverARemoteThatMovedOn) {
    openLocal();
    local.write("mine.txt", "mine\n");
    local.commitAll("mine");
    run(commands.push());
    EXPECT_EQ(lastToast(), "Pushed to origin");
    EXPECT_EQ(origin.rev("main"), local.head());

    commitElsewhere("theirs.txt", "theirs\n");
    local.git({"fetch", "-q", "origin"});
    local.write("mine.txt", "mine, rewritten\n");
    local.git({"commit", "-q", "-a", "--amend", "-m", "mine again"});
    test::LogCapture log;
    run(commands.push());
    EXPECT_TRUE(lastToast().startsWith("Push failed: ")) << lastToast().toStdString();
    EXPECT_TRUE(log.text().contains("op=menu.push reason=")) << log.text().toStdString();
    EXPECT_NE(origin.rev("main"), local.head());

    run(commands.forcePush());
    EXPECT_EQ(lastToast(), "Force pushed to origin");
    EXPECT_EQ(origin.rev("main"), local.head());
    EXPECT_FALSE(model.activityMessage());
}

TEST_F(Commands, StashWithItsNameAndNothingToStashOnACleanTree) {
    openLocal();
    run(commands.stash(QStringLiteral("my work")));
    EXPECT_EQ(lastToast(), "Nothing to stash; working tree is clean");
    local.write("file.txt", "changed\n");
    local.write("new.txt", "untracked\n");
    run(commands.stash(WorkspaceCommands::stashPlaceholder("main", QDateTime({2026, 3, 4}, {5, 6, 7}))));
    EXPECT_EQ(lastToast(), "Changes stashed");
    EXPECT_TRUE(
        QString::fromStdString(local.git({"stash", "list"}))
            .contains(QRegularExpression("On main: WIP_main_04\\.03\\.26\\.05\\.06\\.07_[A-Za-z0-9]{5}\n")));
    EXPECT_EQ(local.read("file.txt"), "one\n");
    EXPECT_FALSE(std::filesystem::exists(local / "new.txt"));
    run(commands.popStash());
    EXPECT_EQ(lastToast(), "Stash popped");
    EXPECT_EQ(local.read("new.txt"), "untracked\n");
}

namespace {

struct BranchCase {
    const char* title;
    LocalChangesOption option;
    const char* name; // "main" exists already, so its creation fails
    bool dirty;
    QStringList toasts;
    bool stashKept;
    const char* fileAfter;
};

} // namespace

TEST_F(Commands, CreateBranchKeepsStashesOrDiscardsLocalChangesAndNeverLosesThemSilently) {
    const BranchCase cases[] = {
        {"keep",
         LocalChangesOption::dontChange,
         "keep",
         true,
         {"Created and checked out 'keep'"},
         false,
         "changed\n"},
        {"stash and reapply",
         LocalChangesOption::stashAndReapply,
         "carried",
         true,
         {"Created and checked out 'carried'"},
         false,
         "changed\n"},
        {"stash, then creation fails",
         LocalChangesOption::stashAndReapply,
         "main",
         true,
         {"Create branch failed: ", "Your changes were auto-stashed before the failed operation. Reapply "
                                    "from the Stash section to recover "
                                    "them."},
         true,
         "one\n"},
        {"stash on a clean tree",
         LocalChangesOption::stashAndReapply,
         "never",
         false,
         {"Stash failed: "},
         false,
         "one\n"},
    };
    openLocal();
    for (const BranchCase& branch : cases) {
        SCOPED_TRACE(branch.title);
        local.git({"checkout", "-q", "main"});
        local.git({"stash", "clear"});
        const qsizetype before = shown.size();
        if (branch.dirty)
            local.write("file.txt", "changed\n");
        run(commands.createBranch({branch.name, true, branch.option}));

        const QStringList raised = shown.mid(before);
        ASSERT_EQ(raised.size(), branch.toasts.size()) << raised.join(" | ").toStdString();
        for (qsizetype index = 0; index < raised.size(); ++index)
            EXPECT_TRUE(raised[index].startsWith(branch.toasts[index])) << raised[index].toStdString();
        EXPECT_EQ(local.read("file.txt"), branch.fileAfter);
        const std::string stashes = local.git({"stash", "list"});
        EXPECT_EQ(!stashes.empty(), branch.stashKept) << stashes;
        if (branch.stashKept)
            EXPECT_NE(local.git({"stash", "show", "-p"}).find("+changed"), std::string::npos);
        local.git({"checkout", "-q", "--", "file.txt"});
    }
}

TEST_F(Commands, DiscardRunsOnlyAfterTheConfirmation) {
    openLocal();
    local.write("file.txt", "changed\n");
    local.write("second.txt", "untracked\n");
    QSignalSpy asked(&commands, &WorkspaceCommands::discardConfirmationNeeded);
    run(commands.createBranch({"fresh", false, LocalChangesOption::discard}));
    ASSERT_EQ(asked.size(), 1);
    EXPECT_EQ(asked[0][0].toInt(), 2);
    EXPECT_EQ(local.read("file.txt"), "changed\n");
    EXPECT_FALSE(local.gitAllowingFailure({"rev-parse", "--verify", "-q", "fresh"}).exitCode == 0);

    commands.cancelDiscard();
    run(commands.confirmDiscard());
    EXPECT_EQ(local.read("file.txt"), "changed\n");

    run(commands.createBranch({"fresh", false, LocalChangesOption::discard}));
    run(commands.confirmDiscard());
    EXPECT_EQ(local.read("file.txt"), "one\n");
    EXPECT_EQ(local.rev("fresh"), local.head());
    EXPECT_EQ(lastToast(), "Created branch 'fresh'");
}

namespace {

struct SwitchCase {
    const char* title;
    LocalChangesOption option;
    bool confirms; // a discard waits for its confirmation, given after the switch
};

} // namespace

TEST_F(Commands, AFlowFinishesOnTheRepositoryItStartedOnWhenTheUserSwitchesTabs) {
    const SwitchCase cases[] = {
        {"stash and reapply", LocalChangesOption::stashAndReapply, false},
        {"discard after its confirmation", LocalChangesOption::discard, true},
    };
    test::TempRepo other;
    other.write("file.txt", "other\n");
    other.commitAll("other first");
    WorkspaceTabState& a = openLocal();
    test::await(model.openRepository(other.path()));
    WorkspaceTabState* b = model.activeTab();
    ASSERT_NE(b, &a);
    b->cancelAllTasks();
    int round = 0;
    for (const SwitchCase& flow : cases) {
        SCOPED_TRACE(flow.title);
        const std::string name = "started-on-a-" + std::to_string(++round);
        model.switchToTab(a.id());
        local.write("file.txt", "changed\n");
        other.write("file.txt", "other changed\n");
        auto started = commands.createBranch({QString::fromStdString(name), true, flow.option});
        // The flow awaits its status read; meanwhile the user goes to the other tab.
        model.switchToTab(b->id());
        run(std::move(started));
        if (flow.confirms)
            run(commands.confirmDiscard());

        EXPECT_EQ(local.git({"rev-parse", "--abbrev-ref", "HEAD"}), name + "\n");
        EXPECT_EQ(other.git({"rev-parse", "--abbrev-ref", "HEAD"}), "main\n");
        EXPECT_NE(other.gitAllowingFailure({"rev-parse", "--verify", "-q", name}).exitCode, 0);
        EXPECT_EQ(other.read("file.txt"), "other changed\n");
        EXPECT_EQ(other.git({"stash", "list"}), "");
        EXPECT_EQ(local.read("file.txt"), flow.confirms ? "one\n" : "changed\n");
        local.git({"checkout", "-q", "-f", "main"});
    }
}
