// The arithmetic that shares the graph table's width out among its columns.
#include "graph/ui/GraphColumnWidths.h"

#include <gtest/gtest.h>

using namespace orvel;

namespace {

struct FitCase {
    const char* name;
    GraphColumnWidths chosen;
    int available;
    GraphColumnWidths expected;
};

// Graph, Branch / Tag, Commit Message, Author, Hash, Date.
constexpr GraphColumnWidths defaults{180, 140, 0, 100, 75, 90};

TEST(GraphColumnWidths, TheMessageTakesTheRestAndTheGraphAndRefsGiveWayFirst) {
    const FitCase cases[] = {
        {"wide: the message takes the spare width", defaults, 1000, {180, 140, 415, 100, 75, 90}},
        {"exactly enough for the message's minimum", defaults, 735, {180, 140, 150, 100, 75, 90}},
        // 100 short: the graph has 140 above its minimum, the refs 80; they give 63 and 37.
        {"short: graph and refs give way in proportion", defaults, 635, {117, 103, 150, 100, 75, 90}},
        {"graph and refs at their minimums", defaults, 515, {40, 60, 150, 100, 75, 90}},
        {"narrower still: the table scrolls", defaults, 300, {40, 60, 150, 100, 75, 90}},
        {"a graph already at its minimum leaves it to the refs", {40, 140, 0, 100, 75, 90}, 535,
         {40, 80, 150, 100, 75, 90}},
        {"chosen widths out of bounds are bounded", {900, 10, 0, 20, 75, 90}, 2000,
         {600, 60, 1115, 60, 75, 90}},
        {"no width at all", defaults, 0, {40, 60, 150, 100, 75, 90}},
    };
    for (const FitCase& c : cases)
        EXPECT_EQ(fitGraphColumns(c.chosen, c.available), c.expected) << c.name;
}

} // namespace
