// Conflict files made by real merges, cut into hunks and composed back from per-line choices.
#include "merge/ConflictHunks.h"
#include "merge/ConflictedMerge.h"

#include <gtest/gtest.h>

using namespace orvel;
using test::ConflictedMerge;
using namespace test::conflict_texts;
using Lines = std::vector<std::string>;

namespace {

const ConflictSides& sidesOf(const ConflictHunk& hunk) {
    return std::get<ConflictSides>(hunk.kind);
}
const Lines& cleanOf(const ConflictHunk& hunk) {
    return std::get<CleanLines>(hunk.kind).lines;
}

ConflictDecisions allOf(const std::vector<ConflictHunk>& hunks, bool ours, bool theirs) {
    ConflictDecisions decisions;
    for (const auto& hunk : hunks) {
        if (const auto* sides = std::get_if<ConflictSides>(&hunk.kind))
            decisions[hunk.id] = {std::vector<bool>(sides->ours.size(), ours),
                                  std::vector<bool>(sides->theirs.size(), theirs)};
    }
    return decisions;
}

} // namespace

// diff3 adds a base to each conflict, which never reaches the output.
TEST(ConflictHunksTest, RealConflictsCutIntoHunksThatComposeGitsStagesAndTheChosenLines) {
    for (const bool diff3 : {false, true}) {
        SCOPED_TRACE(diff3 ? "diff3" : "merge");
        ConflictedMerge merge(baseText, oursText, theirsText, diff3);
        EXPECT_TRUE(containsConflictMarkers(merge.text));
        EXPECT_FALSE(containsConflictMarkers(merge.stage(2)));
        const auto hunks = parseConflictHunks(merge.text);
        ASSERT_EQ(hunks.size(), 5u);
        for (int i = 0; i < 5; ++i)
            EXPECT_EQ(hunks[i].id, i);
        const auto base = [diff3](const char* line) {
            return diff3 ? std::optional(Lines{line}) : std::nullopt;
        };
        EXPECT_EQ(cleanOf(hunks[0]), (Lines{"header", "shared 1"}));
        EXPECT_EQ(sidesOf(hunks[1]),
                  (ConflictSides{{"value = 2", "extra ours"}, {"value = 3"}, base("value = 1")}));
        EXPECT_EQ(cleanOf(hunks[2]), (Lines{"shared 2", "shared 3", "shared 4", "shared 5", "shared 6"}));
        EXPECT_EQ(sidesOf(hunks[3]),
                  (ConflictSides{{"last = ours"}, {"last = 'theirs' $(x)"}, base("last = base")}));
        EXPECT_EQ(cleanOf(hunks[4]), (Lines{"trailer", ""}));

        const auto defaults = defaultDecisions(hunks);
        EXPECT_EQ(defaults, (ConflictDecisions{{1, {{true, true}, {false}}}, {3, {{true}, {false}}}}));
        // The default is ours; all of theirs is theirs; both are what git's stages hold.
        EXPECT_EQ(composeResolved(hunks, defaults), merge.stage(2));
        EXPECT_EQ(composeResolved(hunks, {}), merge.stage(2));
        EXPECT_EQ(composeResolved(hunks, allOf(hunks, false, true)), merge.stage(3));
        EXPECT_EQ(composeResolved(hunks, allOf(hunks, false, false)),
                  "header\nshared 1\nshared 2\nshared 3\nshared 4\nshared 5\nshared 6\ntrailer\n");

        ConflictDecisions decisions = defaults;
        decisions[1] = {{false, true}, {true}}; // one line of ours dropped, theirs added after it
        decisions[3] = {{true}, {true}};        // both: ours first, then theirs
        EXPECT_EQ(composeResolved(hunks, decisions),
                  "header\nshared 1\nextra ours\nvalue = 3\nshared 2\nshared 3\n"
                  "shared 4\nshared 5\nshared 6\nlast = ours\nlast = 'theirs' $(x)\ntrailer\n");
        decisions[3] = {{true}, {}}; // a missing flag takes the default: theirs stays out
        EXPECT_EQ(composeResolved(hunks, decisions),
                  "header\nshared 1\nextra ours\nvalue = 3\nshared 2\nshared 3\n"
                  "shared 4\nshared 5\nshared 6\nlast = ours\ntrailer\n");
    }
}

TEST(ConflictHunksTest, CrlfAndNonUtf8LinesComeBackByteForByte) {
    const std::string base = "one\r\nmid \xff\xfe\r\nkey = 0\r\nend\r\n";
    ConflictedMerge merge(base, "one\r\nmid \xff\xfe\r\nkey = ours\r\nend\r\n",
                          "one\r\nmid \xff\xfe\r\nkey = th\xe9irs\r\nend\r\n", true);
    const auto hunks = parseConflictHunks(merge.text);
    ASSERT_EQ(hunks.size(), 3u);
    EXPECT_EQ(sidesOf(hunks[1]).ours, (Lines{"key = ours\r"}));
    EXPECT_EQ(sidesOf(hunks[1]).theirs, (Lines{"key = th\xe9irs\r"}));
    EXPECT_EQ(composeResolved(hunks, defaultDecisions(hunks)), merge.stage(2));
    EXPECT_EQ(composeResolved(hunks, allOf(hunks, false, true)), merge.stage(3));
}

TEST(ConflictHunksTest, UnterminatedConflictIsKeptWithWhatWasRead) {
    ConflictedMerge merge(baseText, oursText, theirsText, true);
    // Cut the file just before the last closing marker.
    const std::string cut = merge.text.substr(0, merge.text.rfind(">>>>>>>"));
    const auto hunks = parseConflictHunks(cut);
    ASSERT_EQ(hunks.size(), 4u);
    EXPECT_EQ(sidesOf(hunks[3]),
              (ConflictSides{{"last = ours"}, {"last = 'theirs' $(x)", ""}, Lines{"last = base"}}));
    EXPECT_EQ(composeResolved(hunks, allOf(hunks, true, true)),
              "header\nshared 1\nvalue = 2\nextra ours\nvalue = 3\nshared 2\nshared 3\nshared 4\nshared "
              "5\nshared 6\n"
              "last = ours\nlast = 'theirs' $(x)\n");

    const auto opened = parseConflictHunks("keep\n<<<<<<< HEAD\nonly ours");
    ASSERT_EQ(opened.size(), 2u);
    EXPECT_EQ(sidesOf(opened[1]), (ConflictSides{{"only ours"}, {}, std::nullopt}));
}

TEST(ConflictHunksTest, TextWithoutMarkersIsOneCleanHunkAndComesBackUnchanged) {
    for (const std::string text :
         {"a\nb\n", "no newline", "\n", "\n\n", "x\r\ny\r\n", " <<<<<<< indented\n"}) {
        const auto hunks = parseConflictHunks(text);
        ASSERT_EQ(hunks.size(), 1u) << text;
        EXPECT_TRUE(std::holds_alternative<CleanLines>(hunks[0].kind));
        EXPECT_TRUE(defaultDecisions(hunks).empty());
        EXPECT_EQ(composeResolved(hunks, {}), text);
    }
    EXPECT_TRUE(parseConflictHunks("").empty());
    EXPECT_EQ(composeResolved({}, {}), "");
}

TEST(ConflictHunksTest, AdjacentConflictsHaveNoEmptyCleanHunkBetween) {
    const auto hunks =
        parseConflictHunks("<<<<<<< HEAD\na\n=======\nb\n>>>>>>> x\n<<<<<<< HEAD\nc\n=======\nd\n>>>>>>> x");
    ASSERT_EQ(hunks.size(), 2u);
    EXPECT_EQ(sidesOf(hunks[0]), (ConflictSides{{"a"}, {"b"}, std::nullopt}));
    EXPECT_EQ(sidesOf(hunks[1]), (ConflictSides{{"c"}, {"d"}, std::nullopt}));
    EXPECT_EQ(hunks[1].id, 1);
    EXPECT_EQ(composeResolved(hunks, defaultDecisions(hunks)), "a\nc");
    // A conflict with empty sides and a base section that holds markers of its own.
    const auto empty = parseConflictHunks("<<<<<<<\n|||||||\n=======\n>>>>>>>\n");
    ASSERT_EQ(empty.size(), 2u);
    EXPECT_EQ(sidesOf(empty[0]), (ConflictSides{{}, {}, Lines{}}));
    EXPECT_EQ(composeResolved(empty, {}), "");
}

TEST(ConflictHunksTest, MarkerCheckLooksAtTheFirstColumnOnly) {
    EXPECT_TRUE(containsConflictMarkers("Title\n=======\n"));
    EXPECT_TRUE(containsConflictMarkers("x\n>>>>>>>"));
    EXPECT_TRUE(containsConflictMarkers("|||||||| base\n"));
    EXPECT_FALSE(containsConflictMarkers("a <<<<<<< b\n ======= \n======\n<<<<<<\n"));
    EXPECT_FALSE(containsConflictMarkers(""));
}
