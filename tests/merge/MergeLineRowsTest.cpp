// The rows of the merge editor's panels: each side numbered as in its own version of the file, and
// the composed file tinted by side without a row for the empty piece after the last newline.
#include "merge/MergeLineRows.h"

#include <gtest/gtest.h>

using namespace orvel;

TEST(MergeLineRowsTest, SidesAreNumberedInTheirOwnVersionAndOutputFollowsTheChoices) {
    const auto hunks = parseConflictHunks("top\n<<<<<<< ours\no1\no2\n=======\nt1\n>>>>>>> theirs\nmid\n"
                                          "<<<<<<< ours\no3\n=======\nt2\nt3\n>>>>>>> theirs\nend\n");
    ConflictDecisions decisions = defaultDecisions(hunks);
    decisions[3].theirsIncluded = {false, true};
    const std::vector<int> ids = conflictHunkIds(hunks);
    ASSERT_EQ(ids, (std::vector<int>{1, 3}));

    const auto ours = conflictSideRows(hunks, decisions, 3, MergeSide::ours, {});
    const auto theirs = conflictSideRows(hunks, decisions, 3, MergeSide::theirs, {});
    ASSERT_EQ(ours.size(), 1u);
    EXPECT_EQ(ours[0].lineNumber, 5); // top, o1, o2, mid come before it in ours
    ASSERT_EQ(theirs.size(), 2u);
    EXPECT_EQ(theirs[1].lineNumber, 5); // top, t1, mid, t2
    EXPECT_EQ(theirs[1].isOn, true);
    EXPECT_EQ(theirs[0].isOn, false);
    EXPECT_TRUE(conflictSideRows(hunks, decisions, 0, MergeSide::ours, {}).empty());

    std::vector<std::string> texts;
    std::vector<MergeSide> tints;
    std::vector<bool> focused;
    for (const MergeLineRow& row : composedRows(hunks, decisions, 3, {})) {
        texts.push_back(row.text);
        tints.push_back(row.accentTint);
        focused.push_back(row.isFocused);
    }
    EXPECT_EQ(texts, (std::vector<std::string>{"top", "o1", "o2", "mid", "o3", "t3", "end"}));
    EXPECT_EQ(tints[5], MergeSide::theirs);
    EXPECT_EQ(tints[3], MergeSide::none);
    EXPECT_EQ(focused, (std::vector<bool>{false, false, false, false, true, true, false}));
}
