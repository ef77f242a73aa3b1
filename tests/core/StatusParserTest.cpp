// The status parser over porcelain v2 records, as git prints them with -z.
#include "core/parsers/StatusParser.h"
#include "core/parsers/ConflictParser.h"

#include <gtest/gtest.h>

using namespace orvel;
using GitOutputParser::parseConflictFiles;
using GitOutputParser::parseStatusResult;
using namespace std::string_literals;

namespace {

const std::string hashA = "e69de29bb2d1d6434b8b29ae775ad8c2e48c5391";
const std::string hashB = "d00491fd7e5bb6fa28c517a0bb32b8b506539d4d";
const std::string zeros = "0000000000000000000000000000000000000000";

std::string records(std::initializer_list<std::string> parts) {
    std::string text;
    for (const auto& part : parts)
        text += part + '\0';
    return text;
}

} // namespace

TEST(StatusParserOrdinary, PathKeepsItsBlanksAndSidesComeFromXY) {
    const auto files = parseStatusResult(records({"1 M. N... 100644 100644 100644 aaa bbb a b.txt"}));
    ASSERT_EQ(files.size(), 1u);
    EXPECT_EQ(files[0].path, "a b.txt");
    EXPECT_EQ(files[0].id(), "a b.txt");
    EXPECT_EQ(files[0].status, FileStatusKind::tracked(TrackedStatus::modified, TrackedStatus::unmodified));
    EXPECT_FALSE(files[0].originalPath);
    EXPECT_FALSE(files[0].isSubmodule);
}

TEST(StatusParserOrdinary, EveryStatusLetterUnknownOnesSymlinksAndSubmodules) {
    using enum TrackedStatus;
    const struct {
        std::string record;
        TrackedStatus index, worktree;
        bool symlink = false, submodule = false;
    } cases[] = {
        {"1 AD N... 000000 100644 000000 " + zeros + " " + hashA + " added-then-deleted", added, deleted},
        {"1 .T N... 100644 100644 120000 " + hashA + " " + hashA + " became-link", unmodified, typeChanged,
         true},
        {"1 .T N... 120000 120000 100644 " + hashA + " " + hashA + " was-link", unmodified, typeChanged,
         true},
        {"1 X? N... 100644 100644 100644 " + hashA + " " + hashA + " unknown", unmodified, unmodified},
        {"1 M N... 100644 100644 100644 " + hashA + " " + hashA + " one-letter", unmodified, unmodified},
        {"1 .M SC.. 160000 160000 160000 " + hashA + " " + hashA + " vendor/lib", unmodified, modified, false,
         true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.record);
        const auto files = parseStatusResult(records({c.record}));
        ASSERT_EQ(files.size(), 1u);
        EXPECT_EQ(files[0].status, FileStatusKind::tracked(c.index, c.worktree));
        EXPECT_EQ(files[0].isSymlink, c.symlink);
        EXPECT_EQ(files[0].isSubmodule, c.submodule);
    }
}

TEST(StatusParserRenames, OriginalPathIsTheNextRecordWhateverItLooksLike) {
    const auto files = parseStatusResult(
        records({"2 R. N... 100644 100644 100644 aaa bbb R100 new name.txt", "old name.txt", "? after.txt"}));
    ASSERT_EQ(files.size(), 2u);
    EXPECT_EQ(files[0].path, "new name.txt");
    EXPECT_EQ(files[0].originalPath, "old name.txt");
    EXPECT_EQ(files[0].status, FileStatusKind::tracked(TrackedStatus::renamed, TrackedStatus::unmodified));
    EXPECT_EQ(files[1].path, "after.txt");

    const auto lookalike =
        parseStatusResult(records({"2 R. N... 100644 100644 100644 aaa bbb R100 b", "1 x"}));
    ASSERT_EQ(lookalike.size(), 1u);
    EXPECT_EQ(lookalike[0].originalPath, "1 x");

    // A rename as the last record has no original.
    const auto last = parseStatusResult("2 C. N... 100644 100644 100644 aaa bbb C75 copy.txt"s);
    ASSERT_EQ(last.size(), 1u);
    EXPECT_EQ(last[0].path, "copy.txt");
    EXPECT_FALSE(last[0].originalPath);
}

TEST(StatusParserUnmerged, CodesHashesAndUnknownCodes) {
    const auto files = parseStatusResult(records({
        "u UD N... 100644 100644 000000 100644 " + hashA + " " + hashB + " " + zeros + " gone on their side",
        "u ZZ N... 100644 100644 100644 100644 " + hashA + " " + hashA + " " + hashA + " unknown",
        "u AA N... 000000 100644 100644 100644 0000000 " + hashA + " " + hashB + " both added",
    }));
    ASSERT_EQ(files.size(), 2u);
    EXPECT_EQ(files[0].path, "gone on their side");
    EXPECT_EQ(files[0].status, FileStatusKind::unmerged(ConflictType::deletedByThem));
    EXPECT_EQ(files[0].baseHash, hashA);
    EXPECT_EQ(files[0].oursHash, hashB);
    EXPECT_FALSE(files[0].theirsHash);
    EXPECT_EQ(files[1].status, FileStatusKind::unmerged(ConflictType::bothAdded));
    EXPECT_FALSE(files[1].baseHash) << "zeros of any length mean absent";
}

TEST(StatusParserMalformed, HeadersShortAndUnknownRecordsGiveNoFiles) {
    EXPECT_TRUE(
        parseStatusResult(records({"# branch.oid (initial)", "# branch.head main", "# stash 3"})).empty());
    EXPECT_TRUE(parseStatusResult("").empty());
    const auto files = parseStatusResult(records(
        {"1 M. N... 100644", "2 R. N...", "u UU N...", "?", "x whatever", "", "! ignored.log", "? ok"}));
    ASSERT_EQ(files.size(), 2u);
    EXPECT_EQ(files[0].status, FileStatusKind::ignored());
    EXPECT_EQ(files[1].path, "ok");
}

TEST(StatusParserPaths, BytesAreTakenRawWithoutUnquoting) {
    const std::string odd = "-dash \"quoted\" \xff\xfe\nline";
    const auto files = parseStatusResult(records({"? " + odd}));
    ASSERT_EQ(files.size(), 1u);
    EXPECT_EQ(files[0].path, odd);
}

TEST(ConflictParser, ModesAndHashesUseTheirOwnAbsentMarkers) {
    const auto conflicts = parseConflictFiles(records({
        "1 M. N... 100644 100644 100644 aaa bbb not unmerged",
        "u DU N... 100644 000000 100644 100644 " + hashA + " " + zeros + " " + hashB + " a path",
        "u QQ N... 100644 100644 100644 100644 " + hashA + " " + hashA + " " + hashA + " unknown",
        "u AA N... 0 100644 100644 100644 0000000 " + hashA + " " + hashB + " short zeros",
    }));
    ASSERT_EQ(conflicts.size(), 2u);
    EXPECT_EQ(conflicts[0].path, "a path");
    EXPECT_EQ(conflicts[0].conflictType, ConflictType::deletedByUs);
    EXPECT_EQ(conflicts[0].oursMode, "000000");
    EXPECT_FALSE(conflicts[0].oursHash);
    EXPECT_EQ(conflicts[0].theirsHash, hashB);
    EXPECT_FALSE(conflicts[1].baseMode);
    EXPECT_EQ(conflicts[1].baseHash, "0000000") << "only the 40-zero form means absent";
    EXPECT_NE(conflicts[0].id, conflicts[1].id);
}
