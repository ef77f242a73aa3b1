// Option-like tag names change nothing in a real repository.
#include "RealGitService.h"

#include "core/service/GitServiceError.h"
#include "support/Await.h"
#include "support/GitFixture.h"

#include <gtest/gtest.h>

using namespace orvel;
using namespace std::string_literals;

namespace {

class TagsInRepository : public test::RepositoryTest {
  protected:
    void SetUp() override { repo.commitAll("first"); }
};

} // namespace

TEST_F(TagsInRepository, OptionLikeNamesChangeNothing) {
    test::await(real.service.createTag(entry(), "keep", std::nullopt, std::nullopt));
    const std::string refsBefore = repo.git({"for-each-ref"});

    for (const std::string name : {"-d", "--delete", "-l"}) {
        EXPECT_THROW(test::await(real.service.createTag(entry(), name, std::nullopt, std::nullopt)),
                     GitServiceError)
            << name;
        EXPECT_THROW(test::await(real.service.deleteTag(entry(), name)), GitServiceError) << name;
        EXPECT_THROW(test::await(real.service.checkoutTag(entry(), name)), GitServiceError) << name;
        EXPECT_THROW(test::await(real.service.tagDetail(entry(), name)), GitServiceError) << name;
    }
    EXPECT_THROW(test::await(real.service.createTag(entry(), "x", "--contains"s, std::nullopt)),
                 GitServiceError);
    EXPECT_EQ(repo.git({"for-each-ref"}), refsBefore);
    EXPECT_EQ(repo.git({"symbolic-ref", "HEAD"}), "refs/heads/main\n");
}
