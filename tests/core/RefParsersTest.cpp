// The branch and tag parsers over real `git branch -a` and `git tag -l` output of repositories
// built for each case, and over that output cut short or bent out of shape (and fuzzed).
#include "DatedCommits.h"
#include "RecordPrinters.h"

#include "core/parsers/RefParsers.h"
#include "core/support/Text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

using namespace orvel;
using namespace orvel::test;
using namespace std::chrono;
using namespace std::string_literals;
using namespace std::string_view_literals;

namespace {

std::string branchListing(const TempRepo& repo) {
    return repo.git({"branch", "-a", "--format", std::string(GitOutputParser::branchListFormat)});
}

std::string tagListing(const TempRepo& repo) {
    return repo.git({"tag", "-l", "--format", std::string(GitOutputParser::tagListFormat)});
}

std::string revParse(const TempRepo& repo, const std::string& revision) {
    return trimmed(repo.git({"rev-parse", revision}));
}

std::vector<std::string> linesOf(const std::string& text) {
    const auto lines = splitLines(text);
    return {lines.begin(), lines.end()};
}

std::map<std::string, BranchEntry> byName(const std::vector<BranchEntry>& branches) {
    std::map<std::string, BranchEntry> named;
    for (const auto& branch : branches)
        named.emplace(branch.name, branch);
    return named;
}

// A NUL-separated line with its fields, to bend one field of real output.
std::vector<std::string> fieldsOf(std::string_view line) {
    std::vector<std::string> fields;
    std::size_t start = 0;
    for (std::size_t nul; (nul = line.find('\0', start)) != std::string_view::npos; start = nul + 1)
        fields.emplace_back(line.substr(start, nul - start));
    fields.emplace_back(line.substr(start));
    return fields;
}

std::string joined(const std::vector<std::string>& fields) {
    std::string line;
    for (std::size_t i = 0; i < fields.size(); ++i)
        line += (i ? std::string(1, '\0') : std::string()) + fields[i];
    return line;
}

// A clone of `origin` whose branches cover every shape of the listing: ahead and behind its
// upstream, in step with it, tracking a deleted remote branch, nested, with an empty subject, and
// checked out in a second worktree.
class BranchListing : public ::testing::Test {
  protected:
    void SetUp() override {
        commitAt(origin, "base", "2026-02-01T10:00:00+0000");
        origin.git({"branch", "feature"});
        origin.git({"branch", "doomed"});
        test::git(clone.path(), {"clone", "-q", origin.path(), clone.path()});

        clone.git({"branch", "feature", "origin/feature"});
        clone.git({"branch", "doomed", "origin/doomed"});
        clone.git({"branch", "a/b/c"});
        clone.git({"checkout", "-q", "-b", "quiet"});
        {
            ScopedGitDates dates("2026-02-03T08:00:00+0000");
            clone.git({"commit", "-q", "--allow-empty", "--allow-empty-message", "-m", ""});
        }
        clone.git({"checkout", "-q", "main"});
        commitAt(clone, "first local", "2026-03-01T10:00:00+0000");
        tip = commitAt(clone, "second local", "2026-03-04T05:06:07+0200");
        commitAt(origin, "upstream moved on", "2026-03-02T10:00:00+0000");
        origin.git({"branch", "-D", "doomed"});
        clone.git({"fetch", "-q", "--prune"});
        worktreePath = otherTree / "tree";
        clone.git({"worktree", "add", "-q", worktreePath, "-b", "elsewhere"});
    }

    TempRepo origin;
    TempRepo clone{TempRepo::Kind::uninitialised};
    TempDir otherTree;
    std::string tip;
    std::string worktreePath;
};

} // namespace

TEST_F(BranchListing, EveryBranchWithItsTipUpstreamWorktreeAndSubject) {
    const auto branches = GitOutputParser::parseBranches(branchListing(clone));

    std::vector<std::string> refs;
    for (const auto& branch : branches) {
        refs.push_back(branch.fullRefName);
        EXPECT_EQ(branch.hash, revParse(clone, branch.fullRefName)) << branch.name;
        EXPECT_EQ(branch.isRemote, branch.fullRefName.starts_with("refs/remotes/")) << branch.name;
        EXPECT_EQ(branch.description, std::nullopt);
    }
    std::ranges::sort(refs);
    EXPECT_EQ(refs,
              linesOf(clone.git({"for-each-ref", "--format=%(refname)", "refs/heads", "refs/remotes"})));

    const auto named = byName(branches);
    ASSERT_TRUE(named.contains("a/b/c"));
    EXPECT_EQ(named.at("a/b/c").fullRefName, "refs/heads/a/b/c");
    EXPECT_EQ(named.at("a/b/c").upstream, std::nullopt);
    ASSERT_TRUE(named.contains("origin/main"));
    EXPECT_EQ(named.at("origin/main").upstream, std::nullopt);
    EXPECT_EQ(named.at("origin/main").lastCommitSubject, "upstream moved on");
    EXPECT_FALSE(named.contains("origin/doomed"));

    ASSERT_TRUE(named.contains("main"));
    const BranchEntry& main = named.at("main");
    EXPECT_EQ(main.lastCommitSubject, "second local");
    EXPECT_EQ(main.lastCommitDate, sys_days{2026y / March / 4} + hours(3) + minutes(6) + seconds(7));
    EXPECT_EQ(main.worktreePath, clone.path());
    EXPECT_EQ(main.upstream, (UpstreamInfo{"origin/main", "origin", 2, 1, false, std::nullopt}));

    for (const auto& [name, branch] : named)
        EXPECT_EQ(branch.isCurrent, name == "main") << name;

    ASSERT_TRUE(named.contains("feature"));
    EXPECT_EQ(named.at("feature").upstream,
              (UpstreamInfo{"origin/feature", "origin", 0, 0, false, std::nullopt}));
    ASSERT_TRUE(named.contains("doomed"));
    EXPECT_EQ(named.at("doomed").upstream,
              (UpstreamInfo{"origin/doomed", "origin", 0, 0, true, std::nullopt}));

    ASSERT_TRUE(named.contains("elsewhere"));
    EXPECT_EQ(named.at("elsewhere").worktreePath, worktreePath);
    EXPECT_EQ(named.at("a/b/c").worktreePath, std::nullopt);

    ASSERT_TRUE(named.contains("quiet"));
    EXPECT_EQ(named.at("quiet").lastCommitSubject, std::nullopt);
    EXPECT_EQ(named.at("quiet").lastCommitDate, sys_days{2026y / February / 3} + hours(8));
}

TEST_F(BranchListing, DetachedHeadIsListedAsTheCurrentEntry) {
    clone.git({"checkout", "-q", "--detach", "HEAD~1"});
    const auto branches = GitOutputParser::parseBranches(branchListing(clone));
    const auto current = std::ranges::find_if(branches, &BranchEntry::isCurrent);
    ASSERT_NE(current, branches.end());
    EXPECT_TRUE(current->name.starts_with("(HEAD detached at ")) << current->name;
    EXPECT_EQ(current->hash, revParse(clone, "HEAD"));
    EXPECT_FALSE(current->isRemote);
    EXPECT_EQ(current->upstream, std::nullopt);
    EXPECT_EQ(std::ranges::count_if(branches, &BranchEntry::isCurrent), 1);
}

TEST_F(BranchListing, BentFieldsAreReadOrDropped) {
    const auto lines = linesOf(branchListing(clone));
    const auto mainLine = std::ranges::find_if(lines, [](auto line) { return line.starts_with("main\0"sv); });
    ASSERT_NE(mainLine, lines.end());
    const auto fields = fieldsOf(*mainLine);
    ASSERT_EQ(fields.size(), 11u);

    auto withField = [&](std::size_t index, const std::string& value) {
        auto bent = fields;
        bent[index] = value;
        const auto parsed = GitOutputParser::parseBranches(joined(bent) + "\n");
        EXPECT_EQ(parsed.size(), 1u) << value;
        return parsed.empty() ? BranchEntry{} : parsed.front();
    };
    auto counts = [&](const std::string& track) {
        const auto upstream = withField(6, track).upstream.value_or(UpstreamInfo{});
        return std::tuple(upstream.ahead, upstream.behind, upstream.isGone);
    };
    EXPECT_EQ(counts("[ahead 2]"), std::tuple(2, 0, false));
    EXPECT_EQ(counts("behind 1"), std::tuple(0, 1, false));
    EXPECT_EQ(counts("[ahead 2, behind 1]"), std::tuple(2, 1, false));
    EXPECT_EQ(counts("[gone]"), std::tuple(0, 0, true));
    EXPECT_EQ(counts("ahead many, behind 3"), std::tuple(0, 3, false));
    EXPECT_EQ(counts("diverged"), std::tuple(0, 0, false));
    EXPECT_EQ(counts(""), std::tuple(0, 0, false));

    EXPECT_EQ(withField(4, "").upstream, std::nullopt);
    EXPECT_FALSE(withField(3, "+").isCurrent);
    const auto undated = withField(9, "2026-03-04 05:06:07 +0200");
    EXPECT_EQ(undated.lastCommitDate, std::nullopt);
    EXPECT_EQ(undated.hash, tip);

    // Nine fields, with or without the closing NUL: dropped without a word.
    auto short9 = std::vector<std::string>(fields.begin(), fields.begin() + 9);
    EXPECT_TRUE(GitOutputParser::parseBranches(joined(short9)).empty());
    EXPECT_TRUE(GitOutputParser::parseBranches("\n\n" + joined(short9) + "\n\n").empty());
    EXPECT_EQ(GitOutputParser::parseBranches(joined(short9) + "\n" + *mainLine).size(), 1u);
    EXPECT_TRUE(GitOutputParser::parseBranches("").empty());
}

TEST(TagListing, AnnotatedLightweightAndMultiLineTags) {
    TempRepo repo;
    const std::string first = commitAt(repo, "first", "2026-02-01T10:00:00+0000");
    repo.git({"tag", "v0-light"});
    const std::string second = commitAt(repo, "second", "2026-02-02T10:00:00+0000");
    repo.git({"tag", "-a", "v1.0", "-m", "Release one"});
    repo.git({"tag", "-a", "v2.0", "-m", "Release two\nspans two lines", "-m", "Body\nwith more\nlines"});
    // A signature block in the message: git prints it as a field of several lines.
    repo.git({"tag", "-a", "v3.0", "-m",
              "Signed-looking\n\nnotes\n-----BEGIN PGP SIGNATURE-----\n\nabc\n-----END PGP SIGNATURE-----\n",
              first});
    repo.git({"tag", "nested/light", first});

    const std::string listing = tagListing(repo);
    ASSERT_GT(linesOf(listing).size(), 5u) << "the signature should spill over lines";
    const auto tags = GitOutputParser::parseTags(listing);

    std::vector<std::string> names;
    for (const auto& tag : tags)
        names.push_back(tag.name);
    EXPECT_EQ(names, linesOf(repo.git({"tag", "-l"})));

    for (const auto& tag : tags) {
        EXPECT_EQ(tag.hash, revParse(repo, "refs/tags/" + tag.name)) << tag.name;
        EXPECT_EQ(tag.id(), tag.name + ":" + tag.hash);
        const bool annotated = trimmed(repo.git({"cat-file", "-t", tag.name})) == "tag";
        if (annotated)
            EXPECT_EQ(tag.targetHash, revParse(repo, tag.name + "^{commit}")) << tag.name;
        else
            EXPECT_EQ(tag.targetHash, std::nullopt) << tag.name;
    }
    const auto find = [&](const std::string& name) {
        return *std::ranges::find(tags, name, &TagEntry::name);
    };
    EXPECT_EQ(find("v0-light").hash, first);
    EXPECT_EQ(find("v2.0").targetHash, second);
    EXPECT_NE(find("v2.0").hash, second);
    EXPECT_EQ(find("v3.0").targetHash, first);
}

TEST(TagListing, TruncatedOrShortLinesAreDropped) {
    TempRepo repo;
    repo.commitAll("first");
    repo.git({"tag", "light"});
    repo.git({"tag", "-a", "annotated", "-m",
              "Note\n-----BEGIN PGP SIGNATURE-----\nx\n-----END PGP SIGNATURE-----\n"});
    const std::string listing = tagListing(repo);
    const auto whole = GitOutputParser::parseTags(listing);
    ASSERT_EQ(whole.size(), 2u);
    for (std::size_t cut = 0; cut <= listing.size(); ++cut) {
        for (const auto& tag : GitOutputParser::parseTags(std::string_view(listing).substr(0, cut)))
            ASSERT_NE(std::ranges::find(whole, tag), whole.end()) << "cut at " << cut;
    }
    EXPECT_TRUE(GitOutputParser::parseTags("v1\0abc\0\0commit\0\0\0\0subject"s).empty());
    EXPECT_EQ(GitOutputParser::parseTags("v1\0abc\0\0commit\0\0\0\0subject\0"s),
              (std::vector<TagEntry>{{"v1", "abc", std::nullopt}}));
    EXPECT_TRUE(GitOutputParser::parseTags("").empty());
}
