// Commit messages that a shell would have interpreted reach git byte for byte, and nothing in them
// runs.
#include "RealGitService.h"

#include "support/Await.h"
#include "support/GitFixture.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace orvel;

namespace {

class StagingInRepository : public test::RepositoryTest {
  protected:
    // The message as stored in the commit object, bytes untouched.
    std::string lastMessage() const {
        const std::string object = repo.git({"cat-file", "commit", "HEAD"});
        return object.substr(object.find("\n\n") + 2);
    }

    NativeGitService& service = real.service;
};

} // namespace

TEST_F(StagingInRepository, MessagesArriveByteExactAndNothingIsExecuted) {
    repo.commitAll("base");
    repo.write("file.txt", "content\n");
    repo.git({"add", "file.txt"});
    const std::string message = "Quote \" and ' then $(touch pwned) and `touch pwned2` and ${HOME} \\n;\n\n"
                                "body with \xc3\xa9 and $(touch pwned3)";
    const CommitEntry made = test::await(service.commit(entry(), message));
    EXPECT_EQ(lastMessage(), message + "\n");
    EXPECT_EQ(made.subject, "Quote \" and ' then $(touch pwned) and `touch pwned2` and ${HOME} \\n;");
    for (const char* name : {"pwned", "pwned2", "pwned3"}) {
        EXPECT_FALSE(std::filesystem::exists(repo / name)) << name;
        EXPECT_FALSE(std::filesystem::exists(name)) << name;
    }
    const CommitEntry amended =
        test::await(service.amendCommit(entry(), "-m `touch pwned` \"$(touch pwned)\""));
    EXPECT_EQ(amended.subject, "-m `touch pwned` \"$(touch pwned)\"");
    EXPECT_FALSE(std::filesystem::exists(repo / "pwned"));
}
