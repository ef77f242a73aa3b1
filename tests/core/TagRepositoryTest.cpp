// Tags against real repositories: annotated and lightweight, the detail text, deleting, checking
// out through "tags/" (a branch of the same name doesn't interfere), option-like names that change
// nothing, and pushing to a bare repository that serves as the remote.
#include "RealGitService.h"

#include "core/service/GitServiceError.h"
#include "support/Await.h"
#include "support/GitFixture.h"

#include <gtest/gtest.h>

using namespace orvel;
using namespace std::string_literals;
using orvel::test::TempRepo;

namespace {

class TagsInRepository : public test::RepositoryTest {
  protected:
    void SetUp() override {
        repo.write("a.txt", "one\n");
        first = repo.commitAll("first");
        repo.write("a.txt", "two\n");
        second = repo.commitAll("second");
    }
    std::vector<TagEntry> tags() { return test::await(real.service.listTags(entry())); }

    std::string first;
    std::string second;
};

} // namespace

TEST_F(TagsInRepository, AnnotatedAndLightweightTagsAreListedAndDeleted) {
    test::await(real.service.createTag(entry(), "v1.0", std::nullopt, "Release $(one) \"q\""s));
    test::await(real.service.createTag(entry(), "light", first, std::nullopt));

    const auto listed = tags();
    ASSERT_EQ(listed.size(), 2u);
    EXPECT_EQ(listed[0].name, "light");
    EXPECT_EQ(listed[0].hash, first);
    EXPECT_FALSE(listed[0].targetHash.has_value());
    EXPECT_EQ(listed[1].name, "v1.0");
    EXPECT_EQ(listed[1].hash, repo.rev("v1.0"));
    EXPECT_EQ(listed[1].targetHash, second); // no hash given: HEAD
    EXPECT_EQ(repo.git({"cat-file", "-t", "v1.0"}), "tag\n");
    EXPECT_EQ(repo.git({"tag", "-l", "--format=%(contents:subject)", "v1.0"}), "Release $(one) \"q\"\n");

    test::await(real.service.deleteTag(entry(), "light"));
    EXPECT_EQ(repo.git({"tag", "-l"}), "v1.0\n");
    EXPECT_THROW(test::await(real.service.deleteTag(entry(), "light")), GitServiceError);
}

TEST_F(TagsInRepository, DetailIsWhatShowPrints) {
    test::await(real.service.createTag(entry(), "v1.0", first, "Release notes"s));
    const std::string detail = test::await(real.service.tagDetail(entry(), "v1.0"));
    EXPECT_EQ(detail, repo.git({"show", "--no-patch", "tags/v1.0"}));
    EXPECT_NE(detail.find("tag v1.0"), std::string::npos);
    EXPECT_NE(detail.find("Release notes"), std::string::npos);
    EXPECT_NE(detail.find("commit " + first), std::string::npos);
    EXPECT_THROW(test::await(real.service.tagDetail(entry(), "missing")), GitServiceError);
}

TEST_F(TagsInRepository, CheckoutDetachesAtTheTagNotAtABranchOfTheSameName) {
    repo.git({"tag", "-a", "-m", "old", "same", first});
    repo.git({"branch", "same", second});
    test::await(real.service.checkoutTag(entry(), "same"));
    EXPECT_EQ(repo.head(), first);
    EXPECT_NE(repo.gitAllowingFailure({"symbolic-ref", "-q", "HEAD"}).exitCode, 0); // detached
}

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

TEST_F(TagsInRepository, OnlyAMessageMakesAnAnnotatedTagEvenWhenSigningIsOn) {
    repo.git({"config", "core.editor", "false"}); // a regression fails here instead of waiting
    repo.git({"config", "tag.gpgSign", "yes"});
    test::await(real.service.createTag(entry(), "plain", std::nullopt, std::nullopt));
    EXPECT_EQ(repo.git({"cat-file", "-t", "plain"}), "commit\n");
    EXPECT_EQ(repo.git({"config", "tag.gpgSign"}), "yes\n");
    repo.git({"config", "tag.gpgSign", "no"});
    test::await(real.service.createTag(entry(), "noted", std::nullopt, ""s));
    EXPECT_EQ(repo.git({"cat-file", "-t", "noted"}), "tag\n");
}

TEST_F(TagsInRepository, PushTagToABareRemote) {
    TempRepo remote(TempRepo::Kind::bare);
    repo.git({"remote", "add", "origin", remote.path()});
    test::await(real.service.createTag(entry(), "v2", std::nullopt, "two"s));
    test::await(real.service.createTag(entry(), "local-only", std::nullopt, std::nullopt));

    test::await(real.service.pushTag(entry(), "v2", "origin"));
    EXPECT_EQ(remote.git({"tag", "-l"}), "v2\n");
    EXPECT_EQ(remote.rev("v2"), repo.rev("v2"));

    EXPECT_THROW(test::await(real.service.pushTag(entry(), "missing", "origin")), GitServiceError);
    EXPECT_THROW(test::await(real.service.pushTag(entry(), "local-only", "--all")), GitServiceError);
    EXPECT_EQ(remote.git({"tag", "-l"}), "v2\n");
}
