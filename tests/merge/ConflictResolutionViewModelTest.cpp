// The merge editor's model on real conflicts: loading the stages and the file, choosing lines,
// saving and staging through the real service; late loads, failed saves and a model that goes
// away mid-load through a service that holds its answers back.
#include "merge/ConflictResolutionViewModel.h"

#include "core/RealGitService.h"
#include "core/parsers/ConflictParser.h"
#include "core/service/GitServiceError.h"
#include "core/service/MockGitService.h"
#include "merge/ConflictedMerge.h"
#include "support/Await.h"

#include <QCoro/QCoroTimer>

#include <gtest/gtest.h>

#include <chrono>
#include <initializer_list>
#include <memory>
#include <set>

using namespace orvel;
using namespace test::conflict_texts;
using test::ConflictedMerge;

namespace {

ConflictEntry onlyConflictOf(const test::TempRepo& repo) {
    auto conflicts =
        GitOutputParser::parseConflictFiles(repo.git({"status", "--porcelain=v2", "-uall", "-z"}));
    EXPECT_EQ(conflicts.size(), 1u);
    return conflicts.at(0);
}

// A conflicted merge and an editor for its file over the real git service.
struct RealEditor {
    ConflictedMerge merge;
    test::RealGitService git;
    std::shared_ptr<GitServiceProtocol> service{&git.service, [](GitServiceProtocol*) {}};
    ConflictResolutionViewModel model;

    explicit RealEditor(bool diff3)
        : merge(baseText, oursText, theirsText, diff3),
          model(test::RealGitService::repoAt(merge.repo.path()), onlyConflictOf(merge.repo), service) {}

    bool fileIsStagedWithoutConflict() const {
        return merge.repo.git({"status", "--porcelain=v2", "-uall"}).rfind("1 M. ", 0) == 0;
    }
};

const std::string indexLocked = "fatal: Unable to create 'index.lock': File exists.";

// A canned service whose blob reads wait until the test lets them go, and whose writes can fail.
class HeldBackService final : public MockGitService {
  public:
    int readsStarted = 0;
    std::set<int> released; // numbers of the reads that may answer, counted from 0
    bool failWrites = false;

    void release(std::initializer_list<int> reads) { released.insert(reads); }

    QCoro::Task<std::string> readBlob(RepoEntry, std::string hash, std::stop_token) override {
        const int number = readsStarted++;
        while (!released.count(number))
            co_await QCoro::sleepFor(std::chrono::milliseconds(1));
        co_return hash + " #" + std::to_string(number);
    }
    QCoro::Task<void> writeResolvedFile(RepoEntry repo, std::string path, std::string content,
                                        std::stop_token) override {
        if (failWrites)
            throw GitServiceError::commandFailed("add", indexLocked);
        auto written =
            MockGitService::writeResolvedFile(std::move(repo), std::move(path), std::move(content));
        co_await std::move(written);
    }
};

struct HeldBackEditor {
    std::shared_ptr<HeldBackService> service = std::make_shared<HeldBackService>();
    ConflictEntry conflict;

    HeldBackEditor() {
        service->workTreeFiles["f.txt"] = "a\n<<<<<<< HEAD\nours\n=======\ntheirs\n>>>>>>> x\nz\n";
        conflict.path = "f.txt";
        conflict.oursHash = "o";
        conflict.theirsHash = "t"; // no base: a read of only two blobs
    }
    std::unique_ptr<ConflictResolutionViewModel> makeModel() {
        return std::make_unique<ConflictResolutionViewModel>(test::RealGitService::repoAt("/repo"), conflict,
                                                             service);
    }
};

} // namespace

TEST(ConflictResolutionViewModelTest, LoadsARealConflictAndSavesTheChosenLinesStaged) {
    for (const bool diff3 : {false, true}) {
        SCOPED_TRACE(diff3 ? "diff3" : "merge");
        RealEditor editor(diff3);
        auto& model = editor.model;
        int decisionSignals = 0;
        QObject::connect(&model, &ConflictResolutionViewModel::decisionsChanged, [&] { ++decisionSignals; });

        test::await(model.load());
        ASSERT_FALSE(model.loadError());
        EXPECT_FALSE(model.isLoading());
        EXPECT_EQ(model.baseText(), baseText);
        EXPECT_EQ(model.oursText(), oursText);
        EXPECT_EQ(model.theirsText(), theirsText);
        EXPECT_EQ(model.rawWorkingTreeText(), editor.merge.text);
        EXPECT_EQ(model.hunks().size(), 5u);
        EXPECT_EQ(model.conflictCount(), 2);
        EXPECT_EQ(model.composedText(), oursText); // every conflict starts as ours

        model.takeAllTheirs();
        EXPECT_EQ(model.composedText(), theirsText);
        model.takeAllOurs();
        model.toggleOursLine(1, 0);   // drop "value = 2"
        model.toggleTheirsLine(1, 0); // add "value = 3" after the rest of ours
        model.toggleOursLine(1, 9);   // past the end: ignored
        model.toggleTheirsLine(0, 0); // a clean hunk has no choice: ignored
        model.setBoth(3);             // ours first, then theirs
        model.clearHunk(42);          // unknown hunk: ignored
        const std::string chosen = "header\nshared 1\nextra ours\nvalue = 3\nshared 2\nshared 3\nshared 4\n"
                                   "shared 5\nshared 6\nlast = ours\nlast = 'theirs' $(x)\ntrailer\n";
        EXPECT_EQ(model.composedText(), chosen);
        EXPECT_EQ(decisionSignals, 1 + 2 + 3);

        EXPECT_TRUE(test::await(model.save()));
        EXPECT_FALSE(model.isSaving());
        EXPECT_FALSE(model.saveError());
        EXPECT_EQ(editor.merge.repo.read("file.txt"), chosen);
        EXPECT_TRUE(editor.fileIsStagedWithoutConflict());
    }
}

TEST(ConflictResolutionViewModelTest, RawTextWithAMarkerIsRefusedAndWritesNothing) {
    RealEditor editor(true);
    auto& model = editor.model;
    test::await(model.load());

    EXPECT_FALSE(test::await(model.setRawText("resolved\n<<<<<<< HEAD\n")));
    EXPECT_EQ(model.saveError().value_or("").toStdString(), "Remove conflict markers before saving.");
    EXPECT_EQ(editor.merge.repo.read("file.txt"), editor.merge.text);
    EXPECT_FALSE(editor.fileIsStagedWithoutConflict());

    // Marker text after the first column is content; the text is saved as typed.
    const std::string typed = "by hand: ======= and <<<<<<< inside\n'$(touch pwned)'";
    EXPECT_TRUE(test::await(model.setRawText(typed)));
    EXPECT_FALSE(model.saveError());
    EXPECT_EQ(editor.merge.repo.read("file.txt"), typed);
    EXPECT_TRUE(editor.fileIsStagedWithoutConflict());
    EXPECT_FALSE(std::filesystem::exists(editor.merge.repo.path() + "/pwned"));
}

// A read that fails is a load error; a retry reads the file as it is then, and a file without
// markers or with a conflict its end cuts off saves what it holds.
TEST(ConflictResolutionViewModelTest, AFailedReadIsALoadErrorAndARetryReadsTheFileAsItIsThen) {
    RealEditor editor(false);
    auto& model = editor.model;
    std::filesystem::remove(editor.merge.repo.path() + "/file.txt");
    test::await(model.load());
    ASSERT_TRUE(model.loadError());
    EXPECT_TRUE(model.loadError()->contains("file.txt"));
    EXPECT_FALSE(model.isLoading());
    EXPECT_TRUE(model.hunks().empty());

    // Resolved by hand outside the editor, without a final newline.
    editor.merge.repo.write("file.txt", "settled\nno newline");
    test::await(model.load());
    EXPECT_FALSE(model.loadError());
    EXPECT_EQ(model.hunks().size(), 1u);
    EXPECT_EQ(model.conflictCount(), 0);
    EXPECT_TRUE(model.decisions().empty());
    EXPECT_TRUE(test::await(model.save()));
    EXPECT_EQ(editor.merge.repo.read("file.txt"), "settled\nno newline");

    // A conflict that the file's end cuts off keeps what was read.
    editor.merge.repo.write("file.txt", "keep\n<<<<<<< HEAD\nmine\n=======\nyours");
    test::await(model.load());
    EXPECT_EQ(model.conflictCount(), 1);
    model.setTheirsOnly(1);
    EXPECT_TRUE(test::await(model.save()));
    EXPECT_EQ(editor.merge.repo.read("file.txt"), "keep\nyours");
}

TEST(ConflictResolutionViewModelTest, ALateLoadResultChangesNothing) {
    HeldBackEditor setup;
    auto model = setup.makeModel();
    EXPECT_FALSE(test::await(model->save())) << "nothing read yet: saving would empty the file";
    auto first = model->load();  // reads 0 and 1
    auto second = model->load(); // reads 2 and 3
    EXPECT_EQ(model->loadGeneration(), 2);
    EXPECT_TRUE(model->isLoading());

    // The newer load answers first; the user then chooses; the older answer arrives last.
    setup.service->release({2, 3});
    test::await(std::move(second));
    EXPECT_EQ(model->oursText(), "o #2");
    model->setTheirsOnly(1);
    setup.service->release({0, 1});
    test::await(std::move(first));
    EXPECT_EQ(model->oursText(), "o #2");
    EXPECT_EQ(model->composedText(), "a\ntheirs\nz\n");
    EXPECT_FALSE(model->isLoading());
    EXPECT_TRUE(setup.service->resolvedFiles.empty());
}

TEST(ConflictResolutionViewModelTest, AFailedSaveKeepsEveryChoice) {
    HeldBackEditor setup;
    setup.service->release({0, 1});
    auto model = setup.makeModel();
    test::await(model->load());
    model->setBoth(1);
    const auto hunks = model->hunks();
    const auto decisions = model->decisions();

    setup.service->failWrites = true;
    EXPECT_FALSE(test::await(model->save()));
    ASSERT_TRUE(model->saveError());
    EXPECT_EQ(model->saveError()->toStdString(), GitServiceError::commandFailed("add", indexLocked).what());
    EXPECT_FALSE(model->isSaving());
    EXPECT_EQ(model->hunks(), hunks);
    EXPECT_EQ(model->decisions(), decisions);
    EXPECT_TRUE(setup.service->resolvedFiles.empty());

    setup.service->failWrites = false;
    EXPECT_TRUE(test::await(model->save()));
    EXPECT_FALSE(model->saveError());
    EXPECT_EQ(setup.service->resolvedFiles.at("f.txt"), "a\nours\ntheirs\nz\n");
}

TEST(ConflictResolutionViewModelTest, AModelThatGoesAwayMidLoadIsLeftAlone) {
    HeldBackEditor setup;
    auto model = setup.makeModel();
    auto load = model->load();
    model.reset();
    setup.service->release({0, 1});
    test::await(std::move(load)); // under AddressSanitizer, a touch of the freed model fails here
}
