// Status of real working trees: every record kind, all seven conflict kinds, and paths that
// must come back byte for byte and go back to git unchanged.
#include "RealGitService.h"

#include "core/commands/MergeCommands.h"
#include "core/service/OperationResults.h"
#include "support/Await.h"
#include "support/GitFixture.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>

using namespace orvel;
using test::TempRepo;

namespace {

class StatusOfARealRepository : public test::RepositoryTest {
  protected:
    SubprocessExecutor& executor = *real.executor;

    std::map<std::string, FileChange> statusByPath() {
        std::map<std::string, FileChange> byPath;
        for (auto& file : test::await(real.service.status(entry())).files)
            byPath.emplace(file.path, file);
        return byPath;
    }
};

const std::string withSpace = "tracked with space.txt";
const std::string withNewline = "new\nline.txt";
const std::string withDash = "-leading dash.txt";
const std::string notUtf8 = "caf\xe9-\xff\xfe.bin";

} // namespace

TEST_F(StatusOfARealRepository, EveryRecordKindWithOddNames) {
    test::TempRepo library;
    library.write("lib.txt", "library\n");
    library.commitAll("library");

    repo.write(withSpace, "one\n");
    repo.write("rename-me.txt", "content that is long enough to be found as a rename\n");
    repo.write("target.txt", "target\n");
    std::filesystem::create_symlink("target.txt", repo / "link");
    repo.commitAll("base");
    repo.git({"submodule", "add", "-q", library.path(), "vendor/lib"});
    repo.commitAll("add submodule");

    repo.write(withSpace, "one\ntwo\n");
    repo.git({"mv", "rename-me.txt", "renamed.txt"});
    std::filesystem::remove(repo / "link");
    repo.write("link", "a plain file now\n");
    test::git(repo / "vendor/lib", {"commit", "-q", "--allow-empty", "-m", "moved on"});
    for (const auto& name : {withNewline, withDash, notUtf8})
        repo.write(name, "untracked\n");

    auto files = statusByPath();
    ASSERT_EQ(files.size(), 7u);
    EXPECT_EQ(files[withSpace].status,
              FileStatusKind::tracked(TrackedStatus::unmodified, TrackedStatus::modified));
    EXPECT_EQ(files["renamed.txt"].status,
              FileStatusKind::tracked(TrackedStatus::renamed, TrackedStatus::unmodified));
    EXPECT_EQ(files["renamed.txt"].originalPath, "rename-me.txt");
    EXPECT_EQ(files["link"].status,
              FileStatusKind::tracked(TrackedStatus::unmodified, TrackedStatus::typeChanged));
    EXPECT_TRUE(files["link"].isSymlink);
    EXPECT_TRUE(files["vendor/lib"].isSubmodule);
    for (const auto& name : {withNewline, withDash, notUtf8})
        EXPECT_EQ(files[name].status, FileStatusKind::untracked()) << name;

    // The same bytes go back to git: staging each odd path by the name status gave.
    for (const auto& name : {withNewline, withDash, notUtf8})
        executor.execute({"add", "--", files[name].path}, repo.path());
    files = statusByPath();
    for (const auto& name : {withNewline, withDash, notUtf8})
        EXPECT_EQ(files[name].status,
                  FileStatusKind::tracked(TrackedStatus::added, TrackedStatus::unmodified))
            << name;
}

TEST_F(StatusOfARealRepository, UnbornBranchHasNoFilesUntilSomethingIsWritten) {
    EXPECT_TRUE(statusByPath().empty());
    repo.write("first.txt", "1\n");
    EXPECT_EQ(statusByPath()["first.txt"].status, FileStatusKind::untracked());
}

namespace {

// Leaves `repo` in a merge that stops with all seven kinds of conflict.
void mergeWithEveryConflictKind(const TempRepo& repo) {
    for (const char* name : {"uu", "ud", "du", "rr"})
        repo.write(name, std::string("line1\nline2\n") + name + "\n");
    repo.commitAll("base");
    repo.git({"checkout", "-q", "-b", "theirs"});
    repo.write("uu", "theirs\n");
    repo.git({"rm", "-q", "ud"});
    repo.write("du", "theirs\n");
    repo.git({"mv", "rr", "r_theirs"});
    repo.write("aa", "theirs\n");
    repo.commitAll("theirs");
    repo.git({"checkout", "-q", "main"});
    repo.write("uu", "ours\n");
    repo.write("ud", "ours\n");
    repo.git({"rm", "-q", "du"});
    repo.git({"mv", "rr", "r_ours"});
    repo.write("aa", "ours\n");
    repo.commitAll("ours");
}

} // namespace

TEST_F(StatusOfARealRepository, AllSevenConflictKinds) {
    mergeWithEveryConflictKind(repo);
    // The merge's own conflict query reads the same seven.
    const MergeResult merged = MergeCommands::merge(executor, repo.path(), "theirs");
    ASSERT_TRUE(std::holds_alternative<Conflicted>(merged));
    EXPECT_EQ(std::get<Conflicted>(merged).files.size(), 7u);

    auto files = statusByPath();
    const std::map<std::string, ConflictType> expected{
        {"uu", ConflictType::bothModified},      {"aa", ConflictType::bothAdded},
        {"ud", ConflictType::deletedByThem},     {"du", ConflictType::deletedByUs},
        {"rr", ConflictType::bothDeleted},       {"r_ours", ConflictType::addedByUs},
        {"r_theirs", ConflictType::addedByThem},
    };
    ASSERT_EQ(files.size(), expected.size());
    for (const auto& [path, type] : expected)
        EXPECT_EQ(files[path].status, FileStatusKind::unmerged(type)) << path;
    EXPECT_TRUE(files["uu"].baseHash && files["uu"].oursHash && files["uu"].theirsHash);
    EXPECT_FALSE(files["aa"].baseHash);
    EXPECT_FALSE(files["ud"].theirsHash);
    EXPECT_FALSE(files["du"].oursHash);
    EXPECT_FALSE(files["rr"].oursHash || files["rr"].theirsHash);
}
