// The readers of merge-tree's and log's output in the merge prediction, over output git 2.39
// printed.
#include "core/parsers/MergeTreeParser.h"

#include <gtest/gtest.h>

using namespace orvel;
using namespace orvel::GitOutputParser;
using namespace std::string_literals;

TEST(MergeTreeParser, ReadsTheTreeAndEachConflictedPathOnce) {
    const std::string tree = "4853f9ae5fbf95e3c37cf5b61584cba7811660a1";
    struct Case {
        std::string output;
        std::optional<std::vector<std::string>> files; // nothing: not merge-tree output
    };
    const Case cases[] = {
        {"f7018c8e7ce6ba9900b1f4f8e6712b76e4671d35\0"s, std::vector<std::string>{}},
        // content, directory/file and rename/delete conflicts, as --name-only --no-messages -z lists them
        {tree + "\0a.c\0b.h\0d~main\0moved.txt\0"s, std::vector<std::string>{"a.c", "b.h", "d~main", "moved.txt"}},
        // a path listed twice, out of order, and the messages after an empty field
        {tree + "\0b.h\0a.c\0b.h\0\0"s + "1\0a.c\0Auto-merging\0"s, std::vector<std::string>{"a.c", "b.h"}},
        {tree + "\0with\nnewline\0"s, std::vector<std::string>{"with\nnewline"}},
        {"fatal: refusing to merge unrelated histories\n", std::nullopt},
        {tree, std::nullopt},
        {tree.substr(1) + "\0a\0"s, std::nullopt},
        {"", std::nullopt},
    };
    for (const auto& [output, files] : cases) {
        SCOPED_TRACE(output);
        const auto parsed = parseMergeTree(output);
        ASSERT_EQ(parsed.has_value(), files.has_value());
        if (!parsed)
            continue;
        EXPECT_EQ(parsed->tree.size(), 40U);
        EXPECT_EQ(parsed->files, *files);
    }
}

TEST(MergeTreeParser, ReadsCommitsTreesAndParentsAndDropsOtherLines) {
    const std::string c = "bb9ed62da7f211f993a620125797bcc8f71cde20";
    const std::string t = "4853f9ae5fbf95e3c37cf5b61584cba7811660a1";
    const std::string p = "f7018c8e7ce6ba9900b1f4f8e6712b76e4671d35";
    const auto records = parseCommitTrees(c + " " + t + "\n" + c + " " + t + " " + p + " " + c + "\n" + "abc " + t +
                                          " " + p + "\n" + c + "\n\n");
    ASSERT_EQ(records.size(), 2U);
    EXPECT_TRUE(records[0].parents.empty());
    EXPECT_EQ(records[1].tree, t);
    EXPECT_EQ(records[1].parents, (std::vector<std::string>{p, c}));
}
