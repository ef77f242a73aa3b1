// Reading `log --oneline --reverse <onto>..HEAD` into pick rows. The inputs are what git 2.39
// printed for real histories (quotes, a tab and non-ASCII bytes in subjects, a decoration).
#include "core/parsers/RebaseTodoListParser.h"

#include <gtest/gtest.h>

#include <set>

using namespace orvel;
using GitOutputParser::parseRebaseTodoList;

namespace {

std::vector<std::pair<std::string, std::string>> hashesAndSubjects(const std::vector<RebaseTodoEntry>& rows) {
    std::vector<std::pair<std::string, std::string>> pairs;
    for (const auto& row : rows)
        pairs.emplace_back(row.hash, row.subject);
    return pairs;
}

} // namespace

TEST(RebaseTodoListParser, EveryLineOfGitsOutputIsAPickRowWithItsOwnId) {
    const auto rows = parseRebaseTodoList("3703f76 Add the sidebar\n"
                                          "107806f Fix 'quotes' and \"double\" $(x)\n"
                                          "599c230 tab\tinside subject\n"
                                          "3fddb32 Ünïcödé Sübject — dash\n"
                                          "0a1c924 (HEAD -> main) first line\n"
                                          "20d0e3c raw \xc3\xbf\xc3\xbe bytes\n");
    EXPECT_EQ(hashesAndSubjects(rows), (std::vector<std::pair<std::string, std::string>>{
                                           {"3703f76", "Add the sidebar"},
                                           {"107806f", "Fix 'quotes' and \"double\" $(x)"},
                                           {"599c230", "tab\tinside subject"},
                                           {"3fddb32", "Ünïcödé Sübject — dash"},
                                           {"0a1c924", "(HEAD -> main) first line"},
                                           {"20d0e3c", "raw \xc3\xbf\xc3\xbe bytes"},
                                       }));
    std::set<QUuid> ids;
    for (const auto& row : rows) {
        EXPECT_EQ(row.action, RebaseAction::pick);
        EXPECT_EQ(row.rewordMessage, std::nullopt);
        EXPECT_EQ(row.execCommand, std::nullopt);
        ids.insert(row.id);
    }
    EXPECT_EQ(ids.size(), rows.size());
    EXPECT_FALSE(ids.contains(QUuid()));
    // Each read mints new ids.
    EXPECT_NE(parseRebaseTodoList("3703f76 a")[0].id, parseRebaseTodoList("3703f76 a")[0].id);
}

TEST(RebaseTodoListParser, BlanksAndTabsAroundLinesGoAndLinesWithoutABlankAreDropped) {
    EXPECT_TRUE(parseRebaseTodoList("").empty());
    EXPECT_TRUE(parseRebaseTodoList("\n \n\t\n").empty());
    EXPECT_TRUE(parseRebaseTodoList("3703f76\n3703f76\tsubject\n").empty());
    EXPECT_EQ(hashesAndSubjects(parseRebaseTodoList(" \t3703f76  two blanks \t\n\nlast line-no-newline x")),
              (std::vector<std::pair<std::string, std::string>>{{"3703f76", " two blanks"},
                                                                {"last", "line-no-newline x"}}));
    // Only blanks and tabs are trimmed: a carriage return stays in the subject.
    EXPECT_EQ(parseRebaseTodoList("3703f76 windows\r\n")[0].subject, "windows\r");
}
