// Every operation that takes a name, a remote, a url or a path, walked with the same hostile list
// against a real repository and its real bare origin. A value that git would read as an option is
// refused with the operation's refusal text; every value leaves the repository and the origin as
// they were, and none runs the program it names: each would create the marker file.
#include "EveryOperation.h"
#include "RealGitService.h"

#include "support/ServiceError.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace orvel;

namespace {

class HostileArguments : public ::testing::Test {
  protected:
    void SetUp() override {
        work.write("tracked.txt", "one\n");
        work.commitAll("first");
        work.git({"branch", "topic"});
        work.git({"tag", "v1"});
        work.git({"push", "-q", "-u", origin.path(), "main"});
        work.git({"remote", "add", "origin", origin.path()});
        work.git({"fetch", "-q", "origin"});
        work.write("tracked.txt", "one\nchanged\n");
        work.write("untracked.txt", "new\n");
    }

    // The refs, HEAD, index, work tree and configuration of the repository, and the origin's refs.
    std::string state() const {
        return work.git({"for-each-ref", "--format=%(refname) %(objectname)"}) +
               work.gitAllowingFailure({"symbolic-ref", "HEAD"}).out + work.git({"rev-parse", "HEAD"}) +
               work.git({"ls-files", "--stage"}) + work.git({"status", "--porcelain=v1", "-uall"}) +
               work.git({"diff"}) + test::readFile(work / ".git/config") +
               origin.git({"for-each-ref", "--format=%(refname) %(objectname)"});
    }

    std::vector<std::string> hostileValues() const {
        const std::string run = "touch " + marker();
        return {"-x",
                "--upload-pack=" + run,
                "--exec=" + run,
                "-oProxyCommand=" + run,
                "$(" + run + ")",
                "`" + run + "`",
                "x;" + run,
                "x\n" + run};
    }

    std::string marker() const { return scratch / "ran"; }

    test::TempRepo work;
    test::TempRepo origin{test::TempRepo::Kind::bare};
    test::TempDir scratch;
    test::RealGitService real;
};

} // namespace

TEST_F(HostileArguments, RefusedOrTakenLiterallyAndNothingRunsOrChanges) {
    const RepoEntry repo = test::RealGitService::repoAt(work.path());
    for (const test::Operation& operation : test::everyOperation(scratch.path())) {
        if (operation.value == test::Operation::Value::none)
            continue;
        const std::string before = state();
        for (const std::string& value : hostileValues()) {
            SCOPED_TRACE(std::string(operation.name) + " with " + value);
            const bool optionLike = value.starts_with('-');
            const std::string thrown =
                test::thrownText([&] { operation.call(real.service, repo, value, {}); });
            if (optionLike && !operation.role.empty())
                EXPECT_EQ(thrown, "Invalid input: " + operation.role + " must not begin with '-': " + value);
            EXPECT_FALSE(std::filesystem::exists(marker()));
            if (operation.value == test::Operation::Value::kept)
                work.gitAllowingFailure({"remote", "remove", "kept"});
        }
        if (operation.value != test::Operation::Value::kept)
            EXPECT_EQ(state(), before) << operation.name;
    }
}
