// The merge prediction against what git then does: for each kind of conflict, the predicted merge,
// cherry-pick, revert and rebase stop on the same files as the real ones (or all are clean), and a
// prediction leaves the working tree, the index and every ref as they were. A re-prediction works
// out only the steps it has not seen, and a git too old to predict says why once.
#include "RealGitService.h"

#include "core/commands/MergePredictionCommands.h"
#include "core/support/Text.h"
#include "support/Await.h"
#include "support/CountingExecutor.h"
#include "support/GitFixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <set>

using namespace orvel;
using test::await;
using test::TempRepo;
using Files = std::vector<std::string>;

namespace {

// The paths git left unmerged, sorted; nothing when the command it ran succeeded.
Files unmergedAfter(const TempRepo& repo, const std::vector<std::string>& command) {
    if (repo.gitAllowingFailure(command).exitCode == 0)
        return {};
    std::set<std::string> paths;
    const std::string records = repo.git({"ls-files", "-u", "-z"});
    for (const auto& line : splitFields(records, '\0'))
        paths.insert(std::string(line.substr(line.find('\t') + 1)));
    return {paths.begin(), paths.end()};
}

Files predictedFiles(const MergePrediction& prediction) {
    EXPECT_NE(prediction.outcome, MergePrediction::Outcome::unknown) << prediction.reason;
    return prediction.files;
}

Files stopFiles(const InteractiveRebaseResult& result) {
    const auto* stop = std::get_if<RebaseStop>(&result);
    Files files;
    if (stop)
        for (const auto& file : stop->files)
            files.push_back(file.path);
    std::sort(files.begin(), files.end());
    return files;
}

// What a user could see of the repository: status, refs and the index file's bytes.
std::string snapshot(const TempRepo& repo) {
    // Without optional locks status never refreshes the index it is comparing.
    return repo.read(".git/index") +
           repo.git({"--no-optional-locks", "status", "--porcelain=v2", "--branch", "-uall"}) +
           repo.git({"for-each-ref"});
}

const std::string binary("\0\1\2binary\0", 10);

class MergePredictionOnRealGit : public test::RepositoryTest {};

TEST_F(MergePredictionOnRealGit, MatchesWhatTheRealMergePickRevertAndRebaseDo) {
    struct Case {
        const char* name;
        std::function<void(const TempRepo&)> onMain, onTopic;
        Files mergeConflicts;
    };
    const Case cases[] = {
        {"clean", [](auto& r) { r.write("a.c", "1\n2\n3 main\n"); }, [](auto& r) { r.write("new.txt", "n\n"); }, {}},
        {"content",
         [](auto& r) {
             r.write("a.c", "1\n2 main\n3\n");
             r.write("b.h", "main\n");
         },
         [](auto& r) {
             r.write("a.c", "1\n2 topic\n3\n");
             r.write("b.h", "topic\n");
         },
         {"a.c", "b.h"}},
        {"rename/delete", [](auto& r) { r.git({"rm", "-q", "r.txt"}); },
         [](auto& r) { r.git({"mv", "r.txt", "moved.txt"}); }, {"moved.txt"}},
        {"add/add", [](auto& r) { r.write("n.txt", "main\n"); }, [](auto& r) { r.write("n.txt", "topic\n"); },
         {"n.txt"}},
        {"binary", [](auto& r) { r.write("bin", binary + "main"); }, [](auto& r) { r.write("bin", binary + "topic"); },
         {"bin"}},
        {"directory/file", [](auto& r) { r.write("d", "file\n"); }, [](auto& r) { r.write("d/x", "x\n"); },
         {"d~HEAD"}},
    };
    for (const auto& [name, onMain, onTopic, mergeConflicts] : cases) {
        SCOPED_TRACE(name);
        TempRepo repo;
        const RepoEntry entry = test::RealGitService::repoAt(repo.path());
        repo.write("a.c", "1\n2\n3\n");
        repo.write("b.h", "base\n");
        repo.write("r.txt", "rename me\n");
        repo.write("bin", binary);
        repo.commitAll("base");
        repo.git({"checkout", "-q", "-b", "topic"});
        onTopic(repo);
        repo.commitAll("topic");
        repo.git({"checkout", "-q", "main"});
        onMain(repo);
        repo.commitAll("main");

        const std::string before = snapshot(repo);
        const auto merge = await(real.service.predictMerge(entry, "topic"));
        const auto pick = await(real.service.predictPick(entry, "topic", false));
        const auto revert = await(real.service.predictPick(entry, "topic", true));
        EXPECT_EQ(snapshot(repo), before);
        repo.git({"checkout", "-q", "topic"});
        const std::string topicBefore = snapshot(repo);
        const auto plan = RebasePlan{"main", await(real.service.rebaseTodoList(entry, "main"))};
        const auto rebase =
            await(real.service.predictRebase(entry, plan, std::make_shared<MergePredictionCache>()));
        EXPECT_EQ(snapshot(repo), topicBefore);
        repo.git({"checkout", "-q", "main"});

        EXPECT_EQ(predictedFiles(merge), mergeConflicts);
        EXPECT_EQ(predictedFiles(merge), unmergedAfter(repo, {"merge", "--no-edit", "topic"}));
        repo.gitAllowingFailure({"merge", "--abort"});
        EXPECT_EQ(predictedFiles(pick), unmergedAfter(repo, {"cherry-pick", "topic"}));
        repo.gitAllowingFailure({"cherry-pick", "--abort"});
        EXPECT_EQ(predictedFiles(revert), unmergedAfter(repo, {"revert", "--no-edit", "topic"}));
        repo.gitAllowingFailure({"revert", "--abort"});
        repo.git({"reset", "-q", "--hard", "main~0"});

        repo.git({"checkout", "-q", "topic"});
        ASSERT_EQ(rebase.size(), 1U);
        EXPECT_EQ(predictedFiles(rebase[0]), stopFiles(await(real.service.interactiveRebase(entry, plan))));
    }
}

TEST_F(MergePredictionOnRealGit, FollowsThePlanAsTheUserReordersDropsAndSquashesRows) {
    repo.write("f", "x\n");
    repo.commitAll("base");
    repo.git({"checkout", "-q", "-b", "topic"});
    repo.write("f", "y\n");
    repo.commitAll("A");
    repo.write("f", "z\n");
    repo.commitAll("B");
    repo.write("g", "g\n");
    repo.commitAll("C");
    const auto rows = await(real.service.rebaseTodoList(entry(), "main"));
    ASSERT_EQ(rows.size(), 3U);
    const auto row = [&](std::size_t index, RebaseAction action = RebaseAction::pick) {
        auto copy = rows[index];
        copy.action = action;
        return copy;
    };
    // The edits follow one another on one sheet, with one cache: each runs merge-tree only for the
    // steps whose tree and commit no edit before it predicted (a step on its commit's own parent
    // needs no merge at all).
    struct Case {
        const char* name;
        std::vector<RebaseTodoEntry> entries;
        std::optional<std::size_t> firstStop;
        std::size_t merges;
    };
    const Case cases[] = {
        {"as it was", {row(0), row(1), row(2)}, std::nullopt, 0},
        {"B before A", {row(1), row(0), row(2)}, 0, 3},
        {"A dropped", {row(0, RebaseAction::drop), row(1), row(2)}, 1, 1},
        {"B squashed into A", {row(0), row(1, RebaseAction::fixup), row(2)}, std::nullopt, 0},
        {"reversed", {row(2), row(1), row(0)}, 1, 3},
        {"reordered back", {row(2), row(0), row(1)}, std::nullopt, 2},
    };
    const auto counting = std::make_shared<test::CountingExecutor>(real.executor);
    NativeGitService service(counting, real.runner);
    const auto cache = std::make_shared<MergePredictionCache>();
    for (const auto& [name, entries, firstStop, merges] : cases) {
        SCOPED_TRACE(name);
        const RebasePlan plan{"main", entries};
        const auto predictions = await(service.predictRebase(entry(), plan, cache));
        const auto calls = counting->takeCalls();
        EXPECT_EQ(std::count_if(calls.begin(), calls.end(),
                                [](const auto& call) { return call[0] == "merge-tree"; }),
                  static_cast<long>(merges));
        ASSERT_EQ(predictions.size(), entries.size());
        const auto conflicting = std::find_if(predictions.begin(), predictions.end(), [](const auto& p) {
            return p.outcome == MergePrediction::Outcome::conflicts;
        });
        const auto result = await(real.service.interactiveRebase(entry(), plan));
        if (!firstStop) {
            EXPECT_EQ(conflicting, predictions.end());
            EXPECT_TRUE(std::holds_alternative<rebase::Success>(result));
        } else {
            ASSERT_NE(conflicting, predictions.end());
            EXPECT_EQ(static_cast<std::size_t>(conflicting - predictions.begin()), *firstStop);
            ASSERT_TRUE(std::holds_alternative<RebaseStop>(result));
            EXPECT_TRUE(std::get<RebaseStop>(result).stoppedAtHash.starts_with(entries[*firstStop].hash));
            EXPECT_EQ(conflicting->files, stopFiles(result));
            await(real.service.abortRebase(entry()));
        }
        repo.git({"reset", "-q", "--hard", rows[2].hash});
    }
}

TEST_F(MergePredictionOnRealGit, AGitTooOldToPredictSaysWhyOnceAndRunsNothing) {
    repo.write("f", "x\n");
    repo.commitAll("base");
    const auto old = std::make_shared<test::CountingExecutor>(real.executor, "git version 2.37.7");
    NativeGitService service(old, real.runner);
    const auto first = await(service.predictMerge(entry(), "main"));
    EXPECT_EQ(first.outcome, MergePrediction::Outcome::unknown);
    EXPECT_EQ(first.reason, "Conflict preview needs git 2.38 or later; this is git version 2.37.7");
    EXPECT_EQ(await(service.predictPick(entry(), "main", true)), MergePrediction::unknown(""));
    const RebasePlan plan{"main", {RebaseTodoEntry{}}};
    EXPECT_EQ(await(service.predictRebase(entry(), plan, std::make_shared<MergePredictionCache>())),
              std::vector{MergePrediction::unknown("")});
    EXPECT_TRUE(old->takeCalls().empty());
}

TEST(MergePredictionVersion, NeedsGit238OrLater) {
    const std::pair<const char*, bool> cases[] = {
        {"git version 2.39.5", true}, {"git version 2.38.0", true}, {"git version 3.0.1", true},
        {"git version 2.37.7", false}, {"git version 1.99", false}, {"git version 2", false}, {"", false},
    };
    for (const auto& [text, supported] : cases)
        EXPECT_EQ(!MergePredictionCommands::unsupportedReason(text), supported) << text;
}

} // namespace
