// The sidebar's own logic over a canned service: the folder trees, the filter's three modes and
// its limits, the one-call refresh when the refs are unchanged, the merged-branch limit, and the
// checks before a checkout.
#include "core/service/MockGitService.h"
#include "notices/ToastManager.h"
#include "sidebar/BranchTree.h"
#include "sidebar/FilterMatcher.h"
#include "sidebar/SidebarFilterViewModel.h"
#include "sidebar/SidebarViewModel.h"
#include "support/Await.h"
#include "support/Eventually.h"

#include <QTest>

#include <gtest/gtest.h>

using namespace orvel;
using namespace std::chrono_literals;

namespace {

BranchEntry branch(std::string name, bool remote = false, std::string hash = "h") {
    BranchEntry entry;
    entry.fullRefName = (remote ? "refs/remotes/" : "refs/heads/") + name;
    entry.name = std::move(name);
    entry.isRemote = remote;
    entry.hash = std::move(hash);
    return entry;
}

// Each node as its id, depth first, so a whole tree compares in one line.
void flatten(const std::vector<BranchTreeNode>& nodes, std::vector<std::string>& out) {
    for (const auto& node : nodes) {
        out.push_back(node.id + (node.isFolder() ? "/" : ""));
        flatten(node.children, out);
    }
}

std::vector<std::string> flat(const std::vector<BranchTreeNode>& nodes) {
    std::vector<std::string> out;
    flatten(nodes, out);
    return out;
}

// Counts the reads a branch load makes and lets a test move HEAD or dirty the tree under it.
class CountingService final : public MockGitService {
  public:
    std::map<std::string, int> calls;
    std::optional<std::string> headAfterCheckout;

    QCoro::Task<std::vector<BranchEntry>> branches(RepoEntry repo, std::stop_token stop) override {
        ++calls["branches"];
        return MockGitService::branches(std::move(repo), stop);
    }
    QCoro::Task<std::optional<std::string>> defaultBranch(RepoEntry repo, std::stop_token stop) override {
        ++calls["defaultBranch"];
        return MockGitService::defaultBranch(std::move(repo), stop);
    }
    QCoro::Task<std::vector<TagEntry>> listTags(RepoEntry repo, std::stop_token stop) override {
        ++calls["listTags"];
        return MockGitService::listTags(std::move(repo), stop);
    }
    QCoro::Task<std::vector<StashEntry>> stashList(RepoEntry repo, std::stop_token stop) override {
        ++calls["stashList"];
        return MockGitService::stashList(std::move(repo), stop);
    }
    QCoro::Task<std::vector<std::string>> mergedBranches(RepoEntry repo, std::string target,
                                                         std::stop_token stop) override {
        ++calls["mergedBranches"];
        return MockGitService::mergedBranches(std::move(repo), std::move(target), stop);
    }
    QCoro::Task<void> checkoutBranch(RepoEntry repo, std::string name, std::stop_token stop) override {
        ++calls["checkoutBranch"];
        return MockGitService::checkoutBranch(std::move(repo), std::move(name), stop);
    }
    QCoro::Task<std::optional<std::string>> currentBranch(RepoEntry repo, std::stop_token stop) override {
        if (calls["checkoutBranch"] > 0 && headAfterCheckout)
            co_return headAfterCheckout;
        co_return co_await MockGitService::currentBranch(std::move(repo), stop);
    }
};

class SidebarModel : public ::testing::Test {
  protected:
    SidebarModel() {
        service->defaultBranchName = "main";
        repo.path = "/repo";
    }

    std::vector<QString> toastTexts() const {
        std::vector<QString> texts;
        for (const auto& toast : toasts.toasts())
            texts.push_back(toast.message);
        return texts;
    }

    std::shared_ptr<CountingService> service = std::make_shared<CountingService>();
    ToastManager toasts;
    SidebarViewModel model{service, toasts};
    RepoEntry repo;
};

} // namespace

TEST(BranchTree, FoldersBeforeLeavesSortedWithoutCaseAndRemotesGroupedByTheirName) {
    const auto tree =
        buildBranchTree({branch("zeta"), branch("feature/b"), branch("Feature/a"), branch("feature"),
                         branch("feature/x/deep"), branch("a//b"), branch("Alpha")},
                        "local");
    EXPECT_EQ(flat(tree),
              (std::vector<std::string>{"local/a/", "local/a/b", "local/Feature/", "local/Feature/a",
                                        "local/feature/", "local/feature/x/", "local/feature/x/deep",
                                        "local/feature/b", "local/Alpha", "local/feature", "local/zeta"}));

    const auto groups = groupByRemote({branch("origin/main", true), branch("upstream/dev", true),
                                       branch("origin", true), branch("origin/feature/y", true)});
    ASSERT_EQ(groups.size(), 2u);
    EXPECT_EQ(groups[0].remote, "origin");
    EXPECT_EQ(groups[0].branches.size(), 3u);
    const auto trees = buildRemoteTrees(groups);
    EXPECT_EQ(flat(trees[0].nodes), (std::vector<std::string>{"origin/feature/", "origin/feature/y",
                                                              "origin/main", "origin/origin"}));
    EXPECT_EQ(flat(trees[1].nodes), (std::vector<std::string>{"upstream/dev"}));
}

TEST(FilterMatcher, PlainWordAndRegularExpressionMatching) {
    struct Case {
        const char* text;
        const char* query;
        bool word;
        bool regex;
        MatchResult expected;
    };
    const std::string longName = std::string(1100, 'a') + "needle";
    const Case cases[] = {
        {"feature/Login", "LOGIN", false, false, MatchResult::matched},
        {"feature/login", "gin", false, false, MatchResult::matched},
        {"feature/login", "FEATURE", true, false, MatchResult::matched},
        {"features/login", "feature", true, false, MatchResult::noMatch},
        {"feature/log-in", "log", true, false, MatchResult::noMatch},
        {"feature/x", "^feature/.*", false, true, MatchResult::matched},
        {"Main", "^main$", false, true, MatchResult::matched},
        {"develop", "^main$", false, true, MatchResult::noMatch},
        {"feature/x", "feature/(", false, true, MatchResult::noMatch}, // does not compile: nothing, no error
        {longName.c_str(), "needle", false, false, MatchResult::noMatch}, // past the first 1,024 bytes
    };
    const auto later = FilterMatcher::Clock::now() + 10s;
    for (const Case& c : cases) {
        FilterMatcher matcher({QString::fromUtf8(c.query), c.word, c.regex});
        EXPECT_EQ(matcher.match(c.text, later), c.expected) << c.text << " / " << c.query;
    }
    FilterMatcher tooLong({QString(257, QLatin1Char('a')), false, false});
    EXPECT_EQ(tooLong.match(std::string(300, 'a'), later), MatchResult::noMatch);
    // Nested repetition over a long name that finally fails backtracks without end: stopped in time.
    FilterMatcher catastrophic({QStringLiteral("^([a-z/-]+)*[!?]$"), false, true});
    const auto start = FilterMatcher::Clock::now();
    EXPECT_EQ(catastrophic.match("team/feature/a-very-long-branch-name-for-backtracking", start + 50ms),
              MatchResult::timedOut);
    EXPECT_LT(FilterMatcher::Clock::now() - start, 1s);
}

TEST_F(SidebarModel, CatastrophicFilterKeepsWhatItFoundAndSaysSoOnce) {
    SidebarLists lists;
    lists.localBranches = {branch("main!"), branch("team/feature/a-very-long-branch-name-for-backtracking")};
    lists.tags = {TagEntry{"v1!", "t", std::nullopt}};
    auto& filter = model.filter();
    filter.setSources(lists);
    filter.setRegexSearch(true);
    filter.setSearchQuery(QStringLiteral("^([a-z/-]+)*[!?]$"));
    ASSERT_TRUE(test::eventually([&] { return filter.isActive(); }));
    ASSERT_TRUE(test::eventually([&] { return toasts.toasts().size() == 1u; }));
    EXPECT_EQ(toasts.toasts().front().message, QStringLiteral("Search timed out; try a simpler pattern"));
    ASSERT_EQ(filter.results().localBranches.size(), 1u);
    EXPECT_EQ(filter.results().localBranches.front().name, "main!");
    EXPECT_TRUE(filter.results().tags.empty()); // the pass ended at the timeout

    filter.setSearchQuery({});
    ASSERT_TRUE(test::eventually([&] { return !filter.isActive(); }));
    EXPECT_EQ(filter.results(), lists);
}

TEST_F(SidebarModel, RefreshWithTheSameRefsReadsOnlyTheBranches) {
    test::await(model.loadBranches(repo));
    const std::map<std::string, int> first{
        {"branches", 1}, {"defaultBranch", 1}, {"listTags", 1}, {"stashList", 1}, {"mergedBranches", 1}};
    EXPECT_EQ(service->calls, first);
    EXPECT_FALSE(model.localTree().empty());
    EXPECT_EQ(model.mainBranchName(), "main");

    test::await(model.loadBranches(repo));
    EXPECT_EQ(service->calls["branches"], 2);
    EXPECT_EQ(service->calls["listTags"], 1);

    // More than 200 local branches: the merged-branch query is never asked.
    for (int i = 0; i < 201; ++i)
        service->branchList.push_back(branch("bulk/" + std::to_string(i)));
    test::await(model.loadBranches(repo));
    EXPECT_EQ(service->calls["listTags"], 2);
    EXPECT_EQ(service->calls["mergedBranches"], 1);
    EXPECT_TRUE(model.mergedBranchNames().empty());

    // An empty repository has no refs to compare: its details are read at every load.
    service->branchList.clear();
    test::await(model.loadBranches(repo));
    test::await(model.loadBranches(repo));
    EXPECT_EQ(service->calls["listTags"], 4);
}

TEST_F(SidebarModel, CheckoutChecksTheWorkingTreeAndWhereHeadLanded) {
    test::await(model.loadBranches(repo));
    FileChange untracked;
    untracked.path = "new.txt";
    FileChange modified;
    modified.path = "a.txt";
    modified.status = FileStatusKind::tracked(TrackedStatus::unmodified, TrackedStatus::modified);

    service->workingTree.files = {untracked, modified};
    test::await(model.checkoutBranch("feature/search"));
    EXPECT_EQ(service->calls["checkoutBranch"], 0);
    EXPECT_EQ(toastTexts().back(),
              QStringLiteral("Cannot checkout: you have uncommitted changes. Commit or stash "
                             "them first."));

    service->workingTree.files = {untracked};
    service->headAfterCheckout = "elsewhere";
    int completed = 0;
    QObject::connect(&model, &SidebarViewModel::checkoutComplete, [&] { ++completed; });
    test::await(model.checkoutBranch("feature/search"));
    EXPECT_EQ(service->calls["checkoutBranch"], 1);
    EXPECT_EQ(toastTexts().back(),
              QStringLiteral(
                  "Checkout did not land on 'feature/search' (HEAD is 'elsewhere'). Resolve in terminal."));
    EXPECT_EQ(completed, 1);
}
