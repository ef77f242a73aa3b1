// The graph pane's model against a canned service: pills fading down first-parent lines, the
// working-tree row, loads, pages and searches whose late answers are dropped, the file-list cache, and the
// questions and outcomes of the commit actions.
#include "graph/RepoGraphPaneViewModel.h"

#include "core/service/GitServiceError.h"
#include "core/service/MockGitService.h"
#include "support/Await.h"
#include "notices/ToastManager.h"

#include <QCoro/QCoroTimer>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <chrono>
#include <map>

using namespace orvel;
using namespace std::chrono_literals;

namespace {

GraphCommit commitOf(std::string hash, std::vector<std::string> parents, std::vector<GraphRef> refs = {},
                     std::string subject = "subject") {
    GraphCommit commit;
    commit.hash = std::move(hash);
    commit.parentHashes = std::move(parents);
    commit.subject = std::move(subject);
    commit.refs = std::move(refs);
    commit.isHead = !commit.refs.empty() && commit.refs.front().isCurrent;
    return commit;
}

std::string hashOf(int number) {
    return "c" + std::to_string(number);
}

// `count` commits in one line, newest first; the newest carries `refs`.
std::vector<GraphCommit> linearHistory(int count, std::vector<GraphRef> refs) {
    std::vector<GraphCommit> commits;
    for (int i = 0; i < count; ++i) {
        std::vector<std::string> parents;
        if (i + 1 < count)
            parents.push_back(hashOf(i + 1));
        commits.push_back(commitOf(hashOf(i), parents, i == 0 ? refs : std::vector<GraphRef>{}));
    }
    return commits;
}

// A canned service whose graph loads and searches wait until the test lets them go.
class HeldBackService final : public MockGitService {
  public:
    bool holdLoads = false;
    std::map<int, std::vector<GraphCommit>> graphs; // answers of held loads, by number from 0
    int loadsStarted = 0;
    std::map<int, std::vector<std::string>> searches; // answers of the searches, by number
    std::vector<std::string> searchQueries;
    int fileListsRead = 0;
    bool failResets = false;

    QCoro::Task<std::vector<GraphCommit>> commitGraph(RepoEntry, long, std::stop_token) override {
        const int number = loadsStarted++;
        while (holdLoads && !graphs.contains(number))
            co_await QCoro::sleepFor(1ms);
        co_return std::vector<GraphCommit>(graphs[number]);
    }
    // Later pages come from `graph` as it stands when they are asked for, once pages are let go.
    bool holdPages = false;
    QCoro::Task<void> streamCommitGraph(RepoEntry repo, long skip, std::shared_ptr<CommitPageChannel> pages,
                                        std::stop_token cancellation) override {
        while (holdPages)
            co_await QCoro::sleepFor(1ms);
        co_await MockGitService::streamCommitGraph(std::move(repo), skip, std::move(pages), std::move(cancellation));
    }
    QCoro::Task<std::vector<std::string>> searchCommits(RepoEntry, std::string query, CommitSearchType,
                                                        std::stop_token) override {
        const int number = static_cast<int>(searchQueries.size());
        searchQueries.push_back(query);
        while (!searches.contains(number))
            co_await QCoro::sleepFor(1ms);
        co_return std::vector<std::string>(searches[number]);
    }
    QCoro::Task<std::vector<FileChange>> commitFileChanges(RepoEntry, std::string, std::stop_token) override {
        ++fileListsRead;
        co_return sampleCommitFiles();
    }
    QCoro::Task<void> reset(RepoEntry, std::string, ResetMode, std::stop_token) override {
        if (failResets)
            throw GitServiceError::commandFailed("reset", "fatal: ambiguous argument 'x'");
        co_return;
    }
};

RepoEntry repoAt(std::string path) {
    RepoEntry repo;
    repo.path = std::move(path);
    return repo;
}

class GraphModelTest : public ::testing::Test {
  protected:
    RepoEntry repo = repoAt("/repo");
    std::shared_ptr<HeldBackService> service = std::make_shared<HeldBackService>();
    ToastManager toasts;
    RepoGraphPaneViewModel model{repo, service, toasts};

    std::vector<double> opacitiesOf(const std::string& refID) const {
        std::vector<double> opacities;
        for (const auto& row : model.refsByRow()) {
            for (const auto& placed : row) {
                if (placed.ref->id() == refID)
                    opacities.push_back(placed.opacity);
            }
        }
        return opacities;
    }
    QString lastToast() const { return toasts.toasts().empty() ? QString() : toasts.toasts().back().message; }
};

TEST_F(GraphModelTest, PillsFadeDownTheFirstParentLineAndStopWhereTheRowsEnd) {
    model.applyCommits(
        linearHistory(500, {{"main", GraphRefType::localBranch, true}, {"v1", GraphRefType::tag}}));
    const auto tag = opacitiesOf("tag:v1");
    ASSERT_EQ(tag.size(), 200u); // rows 0 to 199
    EXPECT_DOUBLE_EQ(tag[0], 1.0);
    EXPECT_DOUBLE_EQ(tag[1], 0.9);
    EXPECT_NEAR(tag[9], 0.1, 1e-9);
    EXPECT_DOUBLE_EQ(tag[10], 0.05);
    EXPECT_DOUBLE_EQ(tag[199], 0.05);
    EXPECT_TRUE(model.refsByRow()[200].empty());
    EXPECT_EQ(opacitiesOf("localBranch:main").size(), 10u); // steps 0 to 9
    // Pills of the same row keep the order of the commit's refs.
    EXPECT_EQ(model.refsByRow()[0][0].ref->name, "main");
    EXPECT_EQ(model.refsByRow()[0][1].ref->name, "v1");

    // A tag on a short history fades no further than its rows; a line that leaves them stops.
    auto cut = linearHistory(3, {{"v2", GraphRefType::tag}});
    cut.back().parentHashes = {"not-loaded"};
    model.applyCommits(cut);
    EXPECT_EQ(opacitiesOf("tag:v2"), (std::vector<double>{1.0, 0.9, 0.8}));
}

TEST_F(GraphModelTest, TheWorkingTreeRowFollowsTheCounts) {
    model.applyCommits(linearHistory(3, {{"main", GraphRefType::localBranch, true}}));
    struct Case {
        int staged, unstaged;
        const char* date; // nullptr: no working-tree row
    };
    for (const Case& c : {Case{0, 0, nullptr}, Case{0, 3, "\u270E 3"}, Case{2, 3, "\u270E 3 + 2"},
                          Case{4, 0, "\u270E 4"}, Case{0, 0, nullptr}}) {
        model.setWorkingTreeCounts(c.staged, c.unstaged);
        const auto& first = model.commits().front();
        if (!c.date) {
            EXPECT_EQ(model.hashAt(0), hashOf(0));
            EXPECT_EQ(model.commits().size(), 3u);
            continue;
        }
        ASSERT_EQ(model.commits().size(), 4u);
        EXPECT_EQ(model.hashAt(0), "wip");
        EXPECT_EQ(model.dateTextAt(0), c.date);
        EXPECT_EQ(model.commitAt(0).parentHashes, std::vector<std::string>{hashOf(0)});
        // HEAD's row continues the working-tree row's column.
        EXPECT_EQ(model.commits()[1].activeLane, first.activeLane);
        EXPECT_EQ(model.rowOf(hashOf(0)), 1);
    }
    // Without a commit there is nothing for the working tree to stand on.
    model.applyCommits({});
    model.setWorkingTreeCounts(1, 1);
    EXPECT_TRUE(model.commits().empty());
}

TEST_F(GraphModelTest, ALateLoadOrPageChangesNothingAndTheSelectionStartsAtHead) {
    service->holdLoads = true;
    auto first = model.load();
    auto second = model.load();
    service->graphs[1] = linearHistory(2, {{"main", GraphRefType::localBranch, true}});
    test::await(std::move(second));
    service->graphs[0] = linearHistory(5, {});
    test::await(std::move(first));
    EXPECT_EQ(model.commits().size(), 2u);
    EXPECT_EQ(model.selectedHash(), hashOf(0));
    EXPECT_FALSE(model.isUserDrivenSelection());
    EXPECT_FALSE(model.isLoading());

    // A page still on its way when a reload replaced the rows it continued is dropped.
    const auto limit = static_cast<int>(RepoGraphPaneViewModel::loadLimit);
    auto older = linearHistory(limit + 500, {{"main", GraphRefType::localBranch, true}});
    service->graph = older;
    service->graphs[2] = {older.begin(), older.begin() + limit};
    service->holdLoads = false;
    test::await(model.load());
    ASSERT_TRUE(model.hasOlderCommits());
    service->holdLoads = true;
    auto reload = model.load();
    service->holdPages = true;
    model.loadAhead(limit - 1);
    ASSERT_TRUE(model.isPaging());
    auto rewritten = older;
    for (auto& commit : rewritten) {
        commit.hash = "r" + commit.hash;
        for (auto& parent : commit.parentHashes)
            parent = "r" + parent;
    }
    service->graph = rewritten;
    service->graphs[3] = {rewritten.begin(), rewritten.begin() + limit};
    test::await(std::move(reload));
    service->holdPages = false;
    ASSERT_TRUE(QTest::qWaitFor([&] { return !model.isPaging(); }));
    ASSERT_EQ(model.commits().size(), rewritten.size());
    for (int row = 0; row < static_cast<int>(model.commits().size()); ++row)
        ASSERT_TRUE(model.hashAt(row).starts_with("r")) << row;
    model.applyCommits(linearHistory(2, {{"main", GraphRefType::localBranch, true}}));

    // A second click on a commit takes its files from the cache.
    ASSERT_TRUE(QTest::qWaitFor([&] { return !model.isLoadingFileChanges(); }));
    const int reads = service->fileListsRead;
    model.selectCommit(hashOf(1));
    model.selectCommit(hashOf(0));
    EXPECT_EQ(service->fileListsRead, reads + 1);
    ASSERT_TRUE(model.selectedNodeFileChanges());
    EXPECT_EQ(*model.selectedNodeFileChanges(), MockGitService::sampleCommitFiles());
}

TEST_F(GraphModelTest, SearchMatchesAtOnceThenAddsGitsAnswerAndDropsALateOne) {
    auto commits = linearHistory(4, {{"main", GraphRefType::localBranch, true}});
    commits[2].subject = "Fix the Lanes";
    model.applyCommits(commits);
    QSignalSpy changed(&model, &RepoGraphPaneViewModel::searchChanged);

    model.setSearchScope(CommitSearchType::message);
    model.setSearchQuery("lane");
    EXPECT_EQ(model.matchingHashesOrdered(), std::vector<std::string>{hashOf(2)});
    EXPECT_EQ(model.selectedHash(), hashOf(2));
    EXPECT_TRUE(service->searchQueries.empty()); // the pause before git is asked

    // A newer keystroke within the pause supersedes the first search before git runs.
    QTest::qWait(100);
    model.setSearchQuery("lanes");
    ASSERT_TRUE(QTest::qWaitFor([&] { return service->searchQueries.size() == 1; }));
    EXPECT_EQ(service->searchQueries, std::vector<std::string>{"lanes"});
    EXPECT_TRUE(model.isSearching());

    // The answer of a search that a newer one replaced changes nothing.
    model.setSearchQuery("fix");
    ASSERT_TRUE(QTest::qWaitFor([&] { return service->searchQueries.size() == 2; }));
    service->searches[0] = {hashOf(0)};
    service->searches[1] = {hashOf(3), hashOf(2), "beyond-the-rows"};
    ASSERT_TRUE(QTest::qWaitFor([&] { return !model.isSearching(); }));
    // A hit without a row counts, after those with rows.
    EXPECT_EQ(model.matchingHashesOrdered(), (std::vector<std::string>{hashOf(2), hashOf(3), "beyond-the-rows"}));

    // Next walks in row order and wraps; a hit the whole history lacks is told and selects nothing.
    // The hash scope never asks git.
    model.nextMatch();
    EXPECT_EQ(model.selectedHash(), hashOf(3));
    model.nextMatch();
    EXPECT_EQ(model.selectedHash(), hashOf(3));
    EXPECT_EQ(lastToast(), "Commit beyond- is not in the history");
    model.nextMatch();
    EXPECT_EQ(model.selectedHash(), hashOf(2));
    model.previousMatch();
    EXPECT_EQ(model.currentMatchIndex(), 2);
    model.setSearchScope(CommitSearchType::hash);
    model.setSearchQuery("C1");
    QTest::qWait(400);
    EXPECT_EQ(service->searchQueries.size(), 2u);
    EXPECT_EQ(model.matchingHashesOrdered(), std::vector<std::string>{hashOf(1)});

    model.setSearchQuery("");
    EXPECT_TRUE(model.matchingHashes().empty());
    model.toggleSearch();
    model.setSearchQuery("c2");
    model.clearSearch();
    EXPECT_FALSE(model.isSearchVisible());
    EXPECT_TRUE(model.searchQuery().empty());
    EXPECT_TRUE(model.matchingHashes().empty());
    EXPECT_GT(changed.count(), 0);
}

TEST_F(GraphModelTest, ActionsAskFirstWhereTheyMustAndTellTheirOutcome) {
    service->graph = linearHistory(3, {{"main", GraphRefType::localBranch, true}});
    model.applyCommits(service->graph);
    QSignalSpy asked(&model, &RepoGraphPaneViewModel::confirmationRequested);
    QSignalSpy changed(&model, &RepoGraphPaneViewModel::repositoryChanged);
    std::vector<std::optional<QString>> activity;
    model.setActivityCallback([&](std::optional<QString> message) { activity.push_back(message); });

    model.requestReset("0123456789", ResetMode::hard);
    ASSERT_EQ(asked.count(), 1);
    const auto question = asked.takeFirst().at(0).value<GraphConfirmation>();
    EXPECT_EQ(question.kind, GraphConfirmation::Kind::hardReset);
    EXPECT_TRUE(question.text().startsWith("Reset to 0123456? This will move HEAD"));
    EXPECT_TRUE(changed.isEmpty());

    test::await(model.confirm(question));
    EXPECT_EQ(lastToast(), "Reset hard to 0123456");
    EXPECT_EQ(changed.count(), 1);
    ASSERT_EQ(activity.size(), 2u);
    EXPECT_EQ(activity[0], QString("Resetting to 0123456…"));
    EXPECT_FALSE(activity[1]);

    service->failResets = true;
    test::await(model.reset("0123456789", ResetMode::soft));
    EXPECT_EQ(lastToast(), "Reset failed: git reset failed: fatal: ambiguous argument 'x'");
    EXPECT_EQ(changed.count(), 1);

    // A cherry-pick asks first, on a clean tree too, and its question tells what git will do; a
    // git too old to tell, once it has said so, leaves only the question.
    const QString shortHash = QString::fromStdString(hashOf(1).substr(0, 7));
    model.requestCherryPick(hashOf(1));
    ASSERT_EQ(asked.count(), 1);
    const auto pick = asked.takeFirst().at(0).value<GraphConfirmation>();
    EXPECT_EQ(pick.title(), "Cherry-pick Commit");
    EXPECT_EQ(pick.text(), "Cherry-pick " + shortHash + " onto the current branch?");
    ASSERT_TRUE(QTest::qWaitFor([&] { return model.confirmationPrediction().has_value(); }));
    EXPECT_EQ(pick.predictionText(model.confirmationPrediction()),
              "Cherry-picking " + shortHash + " will be clean.");
    EXPECT_EQ(pick.predictionText(MergePrediction::unknown("")), "");
    test::await(model.confirm(pick));
    EXPECT_EQ(lastToast(), "Cherry-picked c1");
    // Onto changes, the revert's question warns of them and tells its conflicts.
    model.setWorkingTreeCounts(1, 0);
    service->predictions[hashOf(1)] = {MergePrediction::Outcome::conflicts, {"a.c", "b.h"}, {}};
    model.requestRevert(hashOf(1));
    ASSERT_EQ(asked.count(), 1);
    const auto revert = asked.takeFirst().at(0).value<GraphConfirmation>();
    EXPECT_EQ(revert.title(), "Revert onto Dirty Working Tree");
    ASSERT_TRUE(QTest::qWaitFor([&] { return model.confirmationPrediction().has_value(); }));
    EXPECT_EQ(revert.predictionText(model.confirmationPrediction()),
              QString::fromStdString("Reverting " + hashOf(1).substr(0, 7) + " will conflict in 2 file(s): a.c, b.h"));

    RepoGraphPaneViewModel unloaded(RepoEntry{}, service, toasts);
    test::await(unloaded.cherryPick(hashOf(1)));
    EXPECT_EQ(lastToast(), "No repository loaded");
}

} // namespace
