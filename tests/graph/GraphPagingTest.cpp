// The history a page at a time on real git: pages laid out and spread with pills one after another
// draw what one whole layout and spread draw; the pane loads on to the checked-out commit, a page
// ahead of the view, to the root, to a search hit or a "go to" name; a refresh keeps the older pages
// unless history was rewritten. The view scrolled, sent to its end and asked to go to a name; a
// screenshot near the root.
#include "support/GeneratedHistory.h"
#include "core/DatedCommits.h"
#include "core/RealGitService.h"
#include "core/commands/HistoryCommands.h"
#include "graph/LaneLayout.h"
#include "graph/RefSpreading.h"
#include "graph/RepoGraphPaneViewModel.h"
#include "graph/ui/GraphPane.h"
#include "graph/ui/GraphRowDelegate.h"
#include "graph/ui/GraphTableView.h"
#include "notices/ToastManager.h"
#include "support/Await.h"
#include "support/Eventually.h"
#include "support/Screenshot.h"

#include <QInputDialog>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <deque>
#include <memory>
#include <unordered_map>

using namespace orvel;

namespace {

std::vector<DAGNode> nodesOf(const CommitStore& store, std::size_t first) {
    std::vector<DAGNode> nodes;
    for (std::size_t index = first; index < store.size(); ++index)
        nodes.push_back({store.hash(index), store.parents(index)});
    return nodes;
}

class GraphPagingTest : public test::RepositoryTest {
  protected:
    std::vector<std::string> gitOrder() const {
        std::vector<std::string> hashes;
        const std::string out = repo.git({"log", "--all", "--topo-order", "--format=%H"});
        for (std::size_t start = 0; start < out.size();) {
            const std::size_t end = out.find('\n', start);
            hashes.push_back(out.substr(start, end - start));
            start = end + 1;
        }
        return hashes;
    }
    int gitRowOf(const std::string& hash) const {
        const auto order = gitOrder();
        return static_cast<int>(std::find(order.begin(), order.end(), hash) - order.begin());
    }
    std::vector<std::string> loadedOrder() const {
        std::vector<std::string> hashes;
        for (std::size_t index = 0; index < model->store().size(); ++index)
            hashes.emplace_back(model->store().hash(index));
        return hashes;
    }
    void open() {
        test::await(model->load());
        ASSERT_TRUE(test::eventually([&] { return !model->isPaging(); }));
    }
    QString lastToast() const { return toasts.toasts().empty() ? QString() : toasts.toasts().back().message; }

    ToastManager toasts;
    std::shared_ptr<NativeGitService> service{std::shared_ptr<NativeGitService>(), &real.service};
    std::unique_ptr<RepoGraphPaneViewModel> model =
        std::make_unique<RepoGraphPaneViewModel>(entry(), service, toasts);
};

// Each row's pills as ref and opacity.
using Pills = std::vector<std::vector<std::pair<std::string, double>>>;

Pills pillsOf(const std::deque<std::vector<RowRef>>& refsByRow) {
    Pills pills;
    for (const auto& row : refsByRow) {
        auto& named = pills.emplace_back();
        for (const RowRef& placed : row)
            named.emplace_back(placed.ref->id(), placed.opacity);
    }
    return pills;
}

// Lays pages out and spreads their pills in turn, as the pane does.
struct PagedGraph {
    CommitStore commits;
    LaneLayout layout;
    RefSpreading spreading;
    std::vector<CommitRow> rows;
    std::deque<std::vector<RowRef>> refsByRow;

    void append(const std::vector<GraphCommit>& page) {
        const std::size_t first = commits.size();
        for (const auto& commit : page)
            commits.append(commit);
        const auto laidOut = layout.append(nodesOf(commits, first));
        rows.insert(rows.end(), laidOut.begin(), laidOut.end());
        spreading.append(commits, first, 0, refsByRow);
    }
};

TEST_F(GraphPagingTest, PagesLaidOutInTurnDrawTheWholeLayoutAndPillsRowForRow) {
    test::importHistory(repo, {.commits = 700, .roots = 4, .mainStopsAt = 300});
    PagedGraph whole;
    whole.append(test::await(real.service.commitGraph(entry(), 100000)));
    ASSERT_EQ(whole.rows.size(), 700u);
    const Pills wholePills = pillsOf(whole.refsByRow);
    // Tags every hundred commits fade over two hundred rows: many rows show pills from rows above.
    ASSERT_TRUE(std::any_of(wholePills.begin(), wholePills.end(), [](const auto& row) { return row.size() > 1; }));
    for (const long pageSize : {1L, 13L, 100L, 699L}) {
        SCOPED_TRACE(pageSize);
        PagedGraph paged;
        HistoryCommands::streamCommitGraph(*real.executor, repo.path(), 0, static_cast<std::size_t>(pageSize), {},
                                           [&](std::vector<GraphCommit> page) {
                                               EXPECT_LE(page.size(), static_cast<std::size_t>(pageSize));
                                               paged.append(page);
                                           });
        ASSERT_EQ(paged.rows.size(), whole.rows.size());
        const Pills pagedPills = pillsOf(paged.refsByRow);
        for (std::size_t row = 0; row < paged.rows.size(); ++row) {
            ASSERT_EQ(paged.rows[row], whole.rows[row]) << "row " << row;
            ASSERT_EQ(pagedPills[row], wholePills[row]) << "row " << row;
        }
    }
}

// The checked-out "main" lies about 3,000 rows down, below the first page.
TEST_F(GraphPagingTest, OpeningLoadsOnToTheCheckedOutCommitAndThePagesFollowGitsOrder) {
    test::importHistory(repo, {.commits = 9000, .roots = 2, .mainStopsAt = 6000});
    const auto order = gitOrder();
    const auto headRow = std::find(order.begin(), order.end(), repo.head()) - order.begin();
    ASSERT_GT(headRow, RepoGraphPaneViewModel::loadLimit);

    open();
    ASSERT_EQ(model->selectedHash(), repo.head());
    EXPECT_FALSE(model->isUserDrivenSelection());
    EXPECT_GT(model->rowOf(repo.head()), 0);
    auto loaded = loadedOrder();
    ASSERT_LT(loaded.size(), order.size());
    EXPECT_TRUE(std::equal(loaded.begin(), loaded.end(), order.begin()));

    // A page ahead of the last row in view, and no more.
    const int rows = static_cast<int>(model->commits().size());
    model->loadAhead(rows - RepoGraphPaneViewModel::loadLimit - 1);
    EXPECT_FALSE(model->isPaging());
    model->loadAhead(rows - 1);
    ASSERT_TRUE(test::eventually([&] { return !model->isPaging(); }));
    EXPECT_EQ(model->commits().size(), std::min<std::size_t>(order.size(), rows + RepoGraphPaneViewModel::loadLimit));

    std::vector<std::optional<QString>> activities;
    model->setActivityCallback([&](std::optional<QString> message) { activities.push_back(message); });
    model->loadToEnd();
    ASSERT_TRUE(test::eventually([&] { return !model->isPaging(); }));
    EXPECT_EQ(loadedOrder(), order);
    EXPECT_FALSE(model->hasOlderCommits());
    ASSERT_FALSE(activities.empty());
    EXPECT_TRUE(activities.front().has_value());
    EXPECT_FALSE(activities.back().has_value());
    EXPECT_EQ(model->selectedHash(), repo.head());
}

TEST_F(GraphPagingTest, GoToAndSearchReachCommitsBelowTheLoadedPages) {
    test::importHistory(repo, {.commits = 4500, .roots = 3});
    open();
    const auto order = gitOrder();
    ASSERT_EQ(model->commits().size(), static_cast<std::size_t>(RepoGraphPaneViewModel::loadLimit));
    const std::string deep = order[order.size() - 3];
    const std::string deepTag = "t100";
    const std::string root = order.back();

    struct Case {
        std::string name;
        std::string expected;
    };
    const std::vector<Case> cases{
        {deep, deep},
        {root.substr(0, 12), root},
        {deepTag, repo.rev(deepTag)},
        {"line1", repo.rev("line1")},
        {"main", repo.head()},
    };
    for (const auto& [name, expected] : cases) {
        SCOPED_TRACE(name);
        test::await(model->goTo(name));
        ASSERT_TRUE(test::eventually([&] { return !model->isPaging(); }));
        EXPECT_EQ(model->selectedHash(), expected) << lastToast().toStdString();
        EXPECT_GE(model->rowOf(expected), 0);
        EXPECT_TRUE(model->isUserDrivenSelection());
    }

    const auto toastsBefore = toasts.toasts().size();
    test::await(model->goTo("no-such-branch"));
    EXPECT_EQ(model->selectedHash(), repo.head());
    ASSERT_EQ(toasts.toasts().size(), toastsBefore + 1);
    EXPECT_TRUE(lastToast().contains(QStringLiteral("no-such-branch")));

    // A fresh pane: the only hit of the search lies below the first page, and counts.
    model = std::make_unique<RepoGraphPaneViewModel>(entry(), service, toasts);
    open();
    const std::string hit = repo.rev("t100");
    ASSERT_LT(model->rowOf(hit), 0);
    model->setSearchQuery("commit 100 of");
    ASSERT_TRUE(test::eventually([&] { return !model->isSearching() && !model->matchingHashes().empty(); }));
    ASSERT_EQ(model->matchingHashesOrdered(), std::vector<std::string>{hit});
    model->nextMatch();
    ASSERT_TRUE(test::eventually([&] { return model->selectedHash() == hit; }));
    EXPECT_GE(model->rowOf(hit), 0);
    EXPECT_EQ(model->matchingHashesOrdered(), std::vector<std::string>{hit});

    // A word in every subject, in a fresh pane: git's hits count every commit of the history,
    // loaded or not.
    model = std::make_unique<RepoGraphPaneViewModel>(entry(), service, toasts);
    open();
    model->setSearchQuery("of the history");
    EXPECT_TRUE(test::eventually([&] { return model->matchingHashesOrdered().size() == order.size(); }))
        << model->matchingHashesOrdered().size();
    EXPECT_LT(model->commits().size(), order.size());
}

TEST_F(GraphPagingTest, RefreshKeepsOlderPagesUnlessHistoryWasRewritten) {
    test::importHistory(repo, {.commits = 3000, .roots = 2});
    open();
    model->loadToEnd();
    ASSERT_TRUE(test::eventually([&] { return !model->isPaging(); }));
    const std::string selected = gitOrder()[2500];
    model->selectCommit(selected);

    // A new commit on top: the rows below the newest page stay as they were.
    test::ScopedGitDates later("2026-02-01T00:00:00+0000");
    repo.git({"commit", "-q", "--allow-empty", "-m", "on top"});
    test::await(model->load());
    EXPECT_EQ(model->commits().size(), 3001u);
    EXPECT_EQ(model->subjectAt(0), "on top");
    EXPECT_EQ(loadedOrder(), gitOrder());
    EXPECT_EQ(model->selectedHash(), selected);
    EXPECT_EQ(model->rowOf(selected), gitRowOf(selected));

    // Nothing changed: nothing is laid out again.
    QSignalSpy relaid(model.get(), &RepoGraphPaneViewModel::commitsChanged);
    test::await(model->load());
    EXPECT_EQ(relaid.count(), 0);
    EXPECT_EQ(model->commits().size(), 3001u);

    // The top commit rewritten: the pages reload, as far as they reached, and the selection stays.
    const std::string rewritten = repo.head();
    repo.git({"commit", "-q", "--amend", "--allow-empty", "-m", "on top, reworded"});
    test::await(model->load());
    EXPECT_EQ(model->commits().size(), static_cast<std::size_t>(RepoGraphPaneViewModel::loadLimit));
    ASSERT_TRUE(test::eventually([&] { return !model->isPaging(); }));
    EXPECT_EQ(loadedOrder(), gitOrder());
    EXPECT_LT(model->rowOf(rewritten), 0);
    EXPECT_EQ(model->selectedHash(), selected);
    EXPECT_EQ(model->rowOf(selected), gitRowOf(selected));
}

TEST_F(GraphPagingTest, ThePaneLoadsAheadOfItsScrollToTheRootAndToANamedCommit) {
    test::importHistory(repo, {.commits = 7000, .roots = 3});
    GraphPane pane(*model);
    pane.resize(1280, 800);
    pane.show();
    open();
    const auto order = gitOrder();
    const auto limit = static_cast<std::size_t>(RepoGraphPaneViewModel::loadLimit);
    // The first screen already wants a page's worth of rows below it.
    ASSERT_TRUE(test::eventually([&] { return model->commits().size() > limit && !model->isPaging(); }));
    const std::size_t firstLoad = model->commits().size();
    EXPECT_LT(firstLoad, order.size());
    // Scrolled to the end of what is loaded: the rows below load, a page's worth beyond the view.
    QScrollBar& scroll = *pane.table().verticalScrollBar();
    ASSERT_TRUE(test::eventually([&] { return scroll.maximum() > static_cast<int>(limit) * GraphRowDelegate::rowHeight; }));
    scroll.setValue(scroll.maximum());
    ASSERT_TRUE(test::eventually([&] { return model->commits().size() > firstLoad && !model->isPaging(); }));
    const int lastInView = pane.table().rowAt(pane.table().viewport()->height() - 1);
    EXPECT_GE(model->commits().size(), static_cast<std::size_t>(lastInView) + limit);
    EXPECT_LT(model->commits().size(), order.size());
    EXPECT_EQ(pane.table().model()->rowCount(), static_cast<int>(model->commits().size()));

    // Ctrl+G to a name below the loaded rows.
    pane.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&pane));
    pane.table().setFocus();
    const std::string tagged = repo.rev("t1000");
    QTest::keyClick(&pane.table(), Qt::Key_G, Qt::ControlModifier);
    auto* dialog = pane.findChild<QInputDialog*>(QStringLiteral("graph.go-to"));
    ASSERT_TRUE(dialog);
    dialog->setTextValue(QStringLiteral(" t1000 "));
    dialog->accept();
    ASSERT_TRUE(test::eventually([&] { return model->selectedHash() == tagged; }));
    EXPECT_EQ(pane.table().currentIndex().row(), model->rowOf(tagged));

    // End loads through to the root and makes the last row current.
    pane.table().setFocus();
    QTest::keyClick(&pane.table(), Qt::Key_End, Qt::ControlModifier);
    ASSERT_TRUE(test::eventually([&] { return !model->hasOlderCommits() && !model->isPaging(); }));
    ASSERT_TRUE(test::eventually([&] { return model->selectedHash() == order.back(); }));
    EXPECT_EQ(pane.table().model()->rowCount(), static_cast<int>(order.size()));
    EXPECT_EQ(pane.table().currentIndex().row(), static_cast<int>(order.size()) - 1);
    test::saveScreenshot(pane, QStringLiteral("graph-near-root"));
}

} // namespace
