// The two log parsers on records shaped like git's, including the malformed ones they must drop.
// Their reading of real git output is covered by CommitGraphTest.
#include "core/parsers/LogParser.h"

#include <QJsonArray>

#include <gtest/gtest.h>

#include <chrono>

using namespace orvel;
using namespace std::string_literals;

namespace {

const std::string hashA(40, 'a');
const std::string hashB(40, 'b');

std::string graphRecord(const std::string& hash, const std::string& decorations,
                        const std::string& date = "2026-01-02T03:04:05+01:00", const std::string& subject = "subject") {
    return hash + "\x1f" + hashB + "\x1f" + "Ada\x1f" + "ada@x\x1f" + date + "\x1f" + subject + "\x1f" +
           decorations + "\x1e\n";
}

// Fourteen fields by default, as the history format asks for.
std::string historyRecord(const std::string& hash, std::size_t fields = 14,
                          const std::string& date = "2026-01-02T03:04:05Z") {
    const std::vector<std::string> values{
        hash,      hash.substr(0, 7), hashB + " " + hashA,     "Ada", "ada@x", date, "Cy", "cy@x", date,
        "subject", "body\n\nmore",    "HEAD -> main, tag: v1", "N",   ""};
    std::string record = "\x01";
    for (std::size_t i = 0; i < fields; ++i)
        record += (i ? "\0"s : ""s) + values[i];
    return record + "\n";
}

std::vector<GraphRef> refsOf(const std::string& decorations, const RemoteNameSet& remotes) {
    const auto commits = GitOutputParser::parseCommitGraph(graphRecord(hashA, decorations), remotes);
    EXPECT_EQ(commits.size(), 1u);
    return commits.empty() ? std::vector<GraphRef>{} : commits.front().refs;
}

} // namespace

TEST(CommitGraphDecorations, HeadBranchRemotesAndTagsKeepTheirOrder) {
    const auto commits = GitOutputParser::parseCommitGraph(
        graphRecord(hashA, "HEAD -> main, origin/main, origin/HEAD, tag: v1"), {"origin"});
    ASSERT_EQ(commits.size(), 1u);
    EXPECT_TRUE(commits[0].isHead);
    const std::vector<GraphRef> expected{{"main", GraphRefType::localBranch, true},
                                         {"origin/main", GraphRefType::remoteBranch, false},
                                         {"origin/HEAD", GraphRefType::remoteBranch, false},
                                         {"v1", GraphRefType::tag, false}};
    EXPECT_EQ(commits[0].refs, expected);
}

TEST(CommitGraphDecorations, SlashNamesAreRemoteOnlyWhenTheirFirstPartIsARemote) {
    EXPECT_EQ(refsOf("feature/x", {"origin"}),
              (std::vector<GraphRef>{{"feature/x", GraphRefType::localBranch, false}}));
    EXPECT_EQ(refsOf("feature/x", {"origin", "feature"}),
              (std::vector<GraphRef>{{"feature/x", GraphRefType::remoteBranch, false}}));
    // A slash with nothing after it leaves one piece, and leading slashes don't count.
    EXPECT_EQ(refsOf("origin/", {"origin"})[0].type, GraphRefType::localBranch);
    EXPECT_EQ(refsOf("/origin/x", {"origin"})[0].type, GraphRefType::remoteBranch);
    EXPECT_EQ(refsOf("origin//x", {"origin"})[0].type, GraphRefType::remoteBranch);
    EXPECT_EQ(refsOf("main", {"main"})[0].type, GraphRefType::localBranch);
}

TEST(CommitGraphDecorations, DetachedHeadAndBlankItemsAddNoRef) {
    const auto commits = GitOutputParser::parseCommitGraph(graphRecord(hashA, "HEAD, \t, main"), {});
    ASSERT_EQ(commits.size(), 1u);
    EXPECT_TRUE(commits[0].isHead);
    EXPECT_EQ(commits[0].refs, (std::vector<GraphRef>{{"main", GraphRefType::localBranch, false}}));
    EXPECT_FALSE(GitOutputParser::parseCommitGraph(graphRecord(hashA, ""), {})[0].isHead);
}

TEST(CommitGraphRecords, FieldsDatesAndMalformedRecords) {
    const std::string output = graphRecord(hashA, "", "2026-01-02T03:04:05+01:00", "HEAD -> x, tag: y") +
                               graphRecord(hashB, "", "yesterday") + "\x1f\x1f\x1f\x1f\x1f\x1f\x1e" +
                               hashA + "\x1f\x1f\x1f\x1e" + "\n \n\x1e";
    const auto commits = GitOutputParser::parseCommitGraph(output, {});
    ASSERT_EQ(commits.size(), 2u);
    EXPECT_EQ(commits[0].hash, hashA);
    EXPECT_EQ(commits[0].parentHashes, std::vector<std::string>{hashB});
    EXPECT_EQ(commits[0].subject, "HEAD -> x, tag: y");
    EXPECT_TRUE(commits[0].refs.empty());
    EXPECT_FALSE(commits[0].isHead);
    using namespace std::chrono;
    EXPECT_EQ(commits[0].date, sys_days{year{2026} / 1 / 2} + hours{2} + minutes{4} + seconds{5});
    ASSERT_EQ(commits[0].authors.size(), 1u);
    EXPECT_EQ(commits[0].authors[0].name, "Ada");
    EXPECT_EQ(commits[0].authors[0].email, "ada@x");
    EXPECT_EQ(commits[0].authors[0].date, commits[0].date);
    EXPECT_FALSE(commits[0].fileChanges.has_value());
    EXPECT_EQ(commits[1].date, distantPast);
    EXPECT_TRUE(GitOutputParser::parseCommitGraph("", {}).empty());
}

TEST(CommitGraphRecords, AuthorIdsAreFreshAndTakeNoPartInEquality) {
    const auto first = GitOutputParser::parseCommitGraph(graphRecord(hashA, ""), {});
    const auto second = GitOutputParser::parseCommitGraph(graphRecord(hashA, ""), {});
    EXPECT_NE(first[0].authors[0].id, second[0].authors[0].id);
    EXPECT_EQ(first[0].authors[0], second[0].authors[0]);
    EXPECT_EQ(std::hash<CommitAuthor>{}(first[0].authors[0]),
              std::hash<CommitAuthor>{}(second[0].authors[0]));
}

TEST(CommitHistoryRecords, ReadsNineOfFourteenFields) {
    const auto entries = GitOutputParser::parseCommitHistory(historyRecord(hashA));
    ASSERT_EQ(entries.size(), 1u);
    const CommitEntry& entry = entries[0];
    EXPECT_EQ(entry.hash, hashA);
    EXPECT_EQ(entry.abbreviatedHash, "aaaaaaa");
    EXPECT_EQ(entry.parentHashes, (std::vector<std::string>{hashB, hashA}));
    EXPECT_EQ(entry.authorName, "Ada");
    EXPECT_EQ(entry.authorEmail, "ada@x");
    EXPECT_EQ(entry.subject, "subject");
    EXPECT_EQ(entry.body, "body\n\nmore");
    EXPECT_EQ(entry.refs, (std::vector<std::string>{"HEAD -> main", "tag: v1"}));
    using namespace std::chrono;
    EXPECT_EQ(entry.authorDate, sys_days{year{2026} / 1 / 2} + hours{3} + minutes{4} + seconds{5});
}

TEST(CommitHistoryRecords, ShortRecordsAndBadHashesAreDroppedAndAnEmptyLastFieldCounts) {
    // A hash is seven to sixty-four hex characters.
    EXPECT_TRUE(GitOutputParser::parseCommitHistory(historyRecord("abcdef")).empty());
    EXPECT_TRUE(GitOutputParser::parseCommitHistory(historyRecord("abcdefg")).empty());
    EXPECT_EQ(GitOutputParser::parseCommitHistory(historyRecord("ABCDEF0")).size(), 1u);
    EXPECT_EQ(GitOutputParser::parseCommitHistory(historyRecord(std::string(64, 'f'))).size(), 1u);
    EXPECT_TRUE(GitOutputParser::parseCommitHistory(historyRecord(std::string(65, 'f'))).empty());

    EXPECT_TRUE(GitOutputParser::parseCommitHistory(historyRecord(hashA, 13)).empty());
    // The fourteenth value is empty: the record ends right after the thirteenth NUL.
    EXPECT_EQ(GitOutputParser::parseCommitHistory(historyRecord(hashA, 14)).size(), 1u);
    const std::string two =
        "noise before" + historyRecord(hashA) + historyRecord(hashB, 14, "2026-13-01T00:00:00Z");
    const auto entries = GitOutputParser::parseCommitHistory(two);
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries[1].authorDate, distantPast);
    EXPECT_TRUE(GitOutputParser::parseCommitHistory("").empty());
}

TEST(CommitEntryCoding, KeysAreTheFieldNamesAndTheRecordComesBackWhole) {
    const auto entries = GitOutputParser::parseCommitHistory(historyRecord(hashA));
    ASSERT_EQ(entries.size(), 1u);
    const QJsonObject object = toJson(entries[0]);
    EXPECT_EQ(object.keys(), (QStringList{"abbreviatedHash", "authorDate", "authorEmail", "authorName",
                                          "body", "hash", "parentHashes", "refs", "subject"}));
    EXPECT_EQ(object.value("authorDate").toString(), "2026-01-02T03:04:05Z");
    EXPECT_EQ(object.value("refs").toArray().size(), 2);
    EXPECT_EQ(commitEntryFromJson(object), entries[0]);

    QJsonObject broken = object;
    broken.insert("parentHashes", "not a list");
    EXPECT_FALSE(commitEntryFromJson(broken).has_value());
    broken = object;
    broken.insert("authorDate", "tomorrow");
    EXPECT_FALSE(commitEntryFromJson(broken).has_value());
    broken.remove("authorDate");
    EXPECT_FALSE(commitEntryFromJson(broken).has_value());
}
