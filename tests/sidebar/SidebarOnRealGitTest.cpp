// The sidebar over the real git where the outcome is git's: how many commands a load runs, and that
// a load cut short leaves the details to the next; a remote branch checked out as a new tracking
// branch, the rules for adding and removing remotes, and applying, popping and dropping stashes.
#include "sidebar/SidebarOnRealGit.h"
#include "sidebar/ManageRemotesViewModel.h"
#include "support/Await.h"
#include "support/Eventually.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using namespace orvel;

namespace {

class SidebarGit : public ::testing::Test, public test::SidebarOnRealGit {};

bool ranCommand(const std::vector<GitExecutorProtocol::Arguments>& calls,
                const std::vector<std::string>& words) {
    return std::ranges::any_of(calls, [&](const auto& arguments) {
        return arguments.size() >= words.size() && std::equal(words.begin(), words.end(), arguments.begin());
    });
}

} // namespace

TEST_F(SidebarGit, ARefreshThatFindsTheSameRefsReadsOnlyTheBranchesAndTheStashes) {
    test::await(sidebar.loadBranches(entry));
    const auto first = executor->takeCalls();
    // The branches, the default branch (one or two reads), tags, stashes and the merged branches.
    EXPECT_GE(first.size(), 5u);
    EXPECT_LE(first.size(), 6u);
    EXPECT_TRUE(ranCommand(first, {"branch", "--merged", "main"}));
    EXPECT_EQ(sidebar.mergedBranchNames(), std::set<std::string>{});
    ASSERT_NE(find("origin/feature/login"), nullptr);

    // A stash moves no branch: the stashes are read on every refresh.
    repo.write("a.txt", "stashed\n");
    repo.git({"stash", "push", "-q", "-m", "kept aside"});
    test::await(sidebar.loadBranches(entry));
    const auto second = executor->takeCalls();
    ASSERT_EQ(second.size(), 2u);
    EXPECT_EQ(second[0].front(), "branch");
    EXPECT_TRUE(ranCommand(second, {"stash", "list"}));
    ASSERT_EQ(sidebar.stashEntries().size(), 1u);
    EXPECT_EQ(sidebar.stashEntries().front().message, "On main: kept aside");

    // A refresh that begins once the moved refs are read, before their details are, reads them.
    repo.git({"tag", "v1"});
    repo.git({"branch", "moved"});
    QMetaObject::Connection again;
    again = QObject::connect(&sidebar, &SidebarViewModel::branchesLoaded, [&] {
        QObject::disconnect(again);
        sidebar.loadBranches(entry);
    });
    test::await(sidebar.loadBranches(entry));
    ASSERT_TRUE(test::eventually([&] { return !sidebar.isLoadingDetails(); }));
    ASSERT_EQ(sidebar.localTags().size(), 1u);
    EXPECT_EQ(sidebar.localTags().front().name, "v1");
}

TEST_F(SidebarGit, ARemoteBranchIsCheckedOutAsANewTrackingBranchThenAsTheLocalOne) {
    test::await(sidebar.loadBranches(entry));
    const BranchEntry remote = *find("origin/feature/login");
    test::await(sidebar.checkoutRemoteBranch(remote));
    EXPECT_EQ(lastToast(), "Created and switched to 'feature/login' tracking 'origin/feature/login'");
    EXPECT_EQ(repo.git({"rev-parse", "--abbrev-ref", "HEAD"}), "feature/login\n");
    EXPECT_EQ(repo.git({"rev-parse", "--abbrev-ref", "feature/login@{upstream}"}), "origin/feature/login\n");

    repo.git({"checkout", "-q", "main"});
    ASSERT_TRUE(test::eventually([&] { return find("feature/login") != nullptr; }));
    test::await(sidebar.checkoutRemoteBranch(remote));
    EXPECT_EQ(lastToast(), "Switched to local branch 'feature/login'");
    EXPECT_EQ(repo.git({"rev-parse", "--abbrev-ref", "HEAD"}), "feature/login\n");
}

TEST_F(SidebarGit, RemotesAreAddedUnderNewNamesOnlyAndRemoved) {
    ManageRemotesViewModel remotes(entry, service, toasts);
    QSignalSpy changed(&remotes, &ManageRemotesViewModel::remotesChanged);
    test::await(remotes.load());
    ASSERT_EQ(remotes.remotes().size(), 1u);
    executor->takeCalls();

    EXPECT_FALSE(test::await(remotes.addRemote(QStringLiteral("origin"), QStringLiteral("/elsewhere"))));
    EXPECT_EQ(remotes.addError(), QStringLiteral("A remote named 'origin' already exists."));
    EXPECT_TRUE(executor->takeCalls().empty());

    EXPECT_FALSE(test::await(remotes.addRemote(QStringLiteral("backup"), QStringLiteral("-x"))));
    EXPECT_TRUE(remotes.addError().has_value());
    EXPECT_EQ(repo.git({"remote"}), "origin\n");

    EXPECT_TRUE(test::await(remotes.addRemote(QStringLiteral("backup"), QStringLiteral("/srv/backup.git"))));
    ASSERT_TRUE(test::eventually([&] { return remotes.remotes().size() == 2u; }));
    test::await(remotes.removeRemote("backup"));
    ASSERT_TRUE(test::eventually([&] { return remotes.remotes().size() == 1u; }));
    EXPECT_EQ(changed.count(), 2);
    EXPECT_EQ(repo.git({"remote"}), "origin\n");
}

TEST_F(SidebarGit, StashesApplyPopAndDrop) {
    repo.write("a.txt", "stashed one\n");
    repo.git({"stash", "push", "-q", "-m", "one"});
    repo.write("b.txt", "stashed two\n");
    repo.git({"add", "b.txt"});
    repo.git({"stash", "push", "-q", "-m", "two"});
    test::await(sidebar.loadBranches(entry));
    ASSERT_EQ(sidebar.stashEntries().size(), 2u);
    const StashEntry two = sidebar.stashEntries()[0], one = sidebar.stashEntries()[1];

    test::await(sidebar.applyStash(one));
    EXPECT_EQ(repo.read("a.txt"), "stashed one\n");
    EXPECT_EQ(lastToast(), "Applied stash: On main: one");
    test::await(sidebar.applyAndDropStash(two));
    EXPECT_EQ(repo.read("b.txt"), "stashed two\n");
    ASSERT_TRUE(test::eventually([&] { return sidebar.stashEntries().size() == 1u; }));
    EXPECT_EQ(sidebar.stashEntries()[0].message, "On main: one");

    sidebar.requestDropStash(sidebar.stashEntries()[0]);
    test::await(sidebar.dropStash());
    EXPECT_FALSE(sidebar.pendingDropStash());
    ASSERT_TRUE(test::eventually([&] { return sidebar.stashEntries().empty(); }));
    EXPECT_EQ(repo.git({"stash", "list"}), "");
}

// A merge asks first, and the question tells what git will do: clean, or the files that will
// conflict; nothing is merged until the user agrees.
TEST_F(SidebarGit, AMergeAsksFirstAndTellsWhichFilesWillConflict) {
    test::await(sidebar.loadBranches(entry));
    const auto forecastFor = [&](const char* branch) {
        sidebar.requestMerge(*find(branch));
        EXPECT_EQ(sidebar.pendingMergeForecast(), "Checking for conflicts…");
        EXPECT_TRUE(
            test::eventually([&] { return sidebar.pendingMergeForecast() != "Checking for conflicts…"; }));
        return sidebar.pendingMergeForecast();
    };
    EXPECT_EQ(forecastFor("topic"), "Merging 'topic' into 'main' will be clean.");
    sidebar.cancelPending();
    EXPECT_FALSE(sidebar.pendingMerge());

    repo.git({"checkout", "-q", "-b", "clash"});
    repo.write("a.txt", "clash\n");
    repo.commitAll("clash");
    repo.git({"checkout", "-q", "main"});
    repo.write("a.txt", "main\n");
    repo.commitAll("main");
    test::await(sidebar.loadBranches(entry));
    EXPECT_EQ(forecastFor("clash"), "Merging 'clash' into 'main' will conflict in 1 file(s): a.txt");
    EXPECT_EQ(repo.git({"status", "--porcelain"}), "");
    test::await(sidebar.confirmMerge());
    EXPECT_EQ(lastToast(), "Merge conflict in 1 file(s)");
    EXPECT_FALSE(sidebar.pendingMerge());
}
