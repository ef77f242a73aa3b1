// The blame parser over real `git blame --porcelain` output, checked line by line against
// `git blame --line-porcelain` of the same file, which repeats every commit's details on every line.
#include "DatedCommits.h"

#include "core/parsers/BlameParser.h"
#include "core/support/Text.h"

#include <gtest/gtest.h>

#include <map>

using namespace orvel;
using namespace orvel::test;
using namespace std::chrono;

namespace {

struct BlamedLine {
    std::string hash;
    std::string author;
    Instant authorDate;
    std::string summary;
    std::string filename;
    std::string content;
};

// The fully repeated form, read the plain way: each header opens a line, each tab line ends it.
std::map<int, BlamedLine> lineByLine(const std::string& linePorcelain) {
    std::map<int, BlamedLine> lines;
    BlamedLine current;
    int number = 0;
    for (std::string_view line : splitLines(linePorcelain)) {
        const auto value = [&](std::string_view key) { return std::string(line.substr(key.size())); };
        if (line.starts_with('\t')) {
            current.content = line.substr(1);
            lines[number] = current;
        } else if (line.starts_with("author ")) {
            current.author = value("author ");
        } else if (line.starts_with("author-time ")) {
            current.authorDate = Instant{seconds{std::stoll(value("author-time "))}};
        } else if (line.starts_with("summary ")) {
            current.summary = value("summary ");
        } else if (line.starts_with("filename ")) {
            current.filename = value("filename ");
        } else if (line.size() > 41 && line[40] == ' ') {
            current = BlamedLine{};
            current.hash = line.substr(0, 40);
            const auto words = line.substr(41);
            number = std::stoi(std::string(words.substr(words.find(' ') + 1)));
        }
    }
    return lines;
}

void expectSameAsLinePorcelain(const std::vector<BlameEntry>& entries, const std::string& linePorcelain) {
    const auto expected = lineByLine(linePorcelain);
    std::size_t covered = 0;
    for (const BlameEntry& entry : entries) {
        for (std::size_t i = 0; i < entry.lines.size(); ++i) {
            const int number = entry.finalLineNumber + static_cast<int>(i);
            ASSERT_TRUE(expected.contains(number)) << number;
            const BlamedLine& line = expected.at(number);
            EXPECT_EQ(entry.hash, line.hash) << number;
            EXPECT_EQ(entry.authorName, line.author) << number;
            EXPECT_EQ(entry.authorDate, line.authorDate) << number;
            EXPECT_EQ(entry.summary, line.summary) << number;
            EXPECT_EQ(entry.filename, line.filename) << number;
            EXPECT_EQ(entry.lines[i], line.content) << number;
            ++covered;
        }
    }
    EXPECT_EQ(covered, expected.size());
    // Groups are as long as they can be: neighbours differ in commit or aren't contiguous.
    for (std::size_t i = 1; i < entries.size(); ++i) {
        const BlameEntry& before = entries[i - 1];
        EXPECT_TRUE(entries[i].hash != before.hash ||
                    entries[i].finalLineNumber !=
                        before.finalLineNumber + static_cast<int>(before.lines.size()))
            << "entries " << i - 1 << " and " << i << " should be one";
    }
}

std::string commitAs(const TempRepo& repo, const std::string& author, const std::string& message,
                     const std::string& date) {
    ScopedGitDates dates(date);
    repo.git({"add", "-A"});
    repo.git({"commit", "-q", "--author", author, "-m", message});
    return repo.head();
}

// A story whose lines come from four commits: written by Ann, line 3 by Bob, lines 6 and 8 by Cy,
// then moved to a file name with blanks by Dee, who also rewrote line 1.
class BlameOfStory : public ::testing::Test {
  protected:
    void SetUp() override {
        repo.write("story.txt", "once\nupon\na time\n\n\tindented\nthere was\nthe end\n");
        ann = commitAs(repo, "Ann Author <ann@orvel.invalid>", "Write the story", "2026-01-10T10:00:00+0000");
        repo.write("story.txt", "once\nupon\nA TIME\n\n\tindented\nthere was\nthe end\n");
        bob =
            commitAs(repo, "Bob Builder <bob@orvel.invalid>", "Shout line three", "2026-01-20T10:00:00+0100");
        repo.write("story.txt", "once\nupon\nA TIME\n\n\tindented\nthere were two\nthe end\nepilogue\n");
        cy = commitAs(repo, "Cy <cy@orvel.invalid>", "Two and an epilogue", "2026-01-30T10:00:00-0500");
        repo.git({"mv", "story.txt", "tale of two.txt"});
        repo.write("tale of two.txt",
                   "Once\nupon\nA TIME\n\n\tindented\nthere were two\nthe end\nepilogue\n");
        dee = commitAs(repo, "Dee <dee@orvel.invalid>", "Rename and capitalise", "2026-02-05T10:00:00+0000");
    }

    std::string blame(const TempRepo& in, const char* mode) const {
        return in.git({"blame", mode, "--", "tale of two.txt"});
    }

    TempRepo repo;
    std::string ann, bob, cy, dee;
};

} // namespace

TEST_F(BlameOfStory, GroupsRunsOfOneCommitAndCarriesItsDetails) {
    const std::string porcelain = blame(repo, "--porcelain");
    const auto entries = GitOutputParser::parseBlame(porcelain);

    struct Run {
        std::string hash;
        int first;
        std::vector<std::string> lines;
    };
    const std::vector<Run> expected{{dee, 1, {"Once"}},          {ann, 2, {"upon"}},
                                    {bob, 3, {"A TIME"}},        {ann, 4, {"", "\tindented"}},
                                    {cy, 6, {"there were two"}}, {ann, 7, {"the end"}},
                                    {cy, 8, {"epilogue"}}};
    ASSERT_EQ(entries.size(), expected.size());
    for (std::size_t i = 0; i < entries.size(); ++i) {
        EXPECT_EQ(entries[i].hash, expected[i].hash) << i;
        EXPECT_EQ(entries[i].finalLineNumber, expected[i].first) << i;
        EXPECT_EQ(entries[i].lines, expected[i].lines) << i;
    }

    // git names Ann's commit with its details once; the line-by-line form repeats them on every line
    // of her later runs, so these carry them too.
    expectSameAsLinePorcelain(entries, blame(repo, "--line-porcelain"));
}

TEST_F(BlameOfStory, BoundaryCommitOfAShallowClone) {
    TempRepo shallow(TempRepo::Kind::uninitialised);
    test::git(shallow.path(), {"clone", "-q", "--depth", "2", "file://" + repo.path(), shallow.path()});
    const std::string porcelain = blame(shallow, "--porcelain");
    ASSERT_NE(porcelain.find("\nboundary\n"), std::string::npos);

    const auto entries = GitOutputParser::parseBlame(porcelain);
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries[0].hash, dee);
    EXPECT_EQ(entries[1].hash, cy); // the shallow end takes the blame for all older lines
    EXPECT_EQ(entries[1].finalLineNumber, 2);
    EXPECT_EQ(entries[1].lines.size(), 7u);
    expectSameAsLinePorcelain(entries, blame(shallow, "--line-porcelain"));
}

TEST(BlameMalformed, LinesWithoutTheirPartsAreDropped) {
    const std::string a(40, 'a');
    // A content line before any header, key lines without a header, a header of a hash too long.
    EXPECT_TRUE(GitOutputParser::parseBlame("\torphan\nauthor Nobody\nsummary x\n").empty());
    EXPECT_TRUE(GitOutputParser::parseBlame(std::string(64, 'c') + " 1 1 1\nauthor Long\n\tline\n").empty());
    EXPECT_TRUE(GitOutputParser::parseBlame(a + "\n\tline\n" + a.substr(1) + " 1 1 1\n\tline\n").empty());
    EXPECT_TRUE(GitOutputParser::parseBlame("").empty());

    // Two content lines for one header: the second has no header of its own.
    const auto once = GitOutputParser::parseBlame(a + " 1 1 1\nauthor Ann\n\tfirst\n\tsecond\n");
    ASSERT_EQ(once.size(), 1u);
    EXPECT_EQ(once[0].lines, std::vector<std::string>{"first"});

    // Too few words to hold line numbers, an unreadable time, a tab-only line.
    const auto odd = GitOutputParser::parseBlame(a + " 7\nauthor-time soon\nsummary s\n\t\n");
    ASSERT_EQ(odd.size(), 1u);
    EXPECT_EQ(odd[0].finalLineNumber, 0);
    EXPECT_EQ(odd[0].authorDate, Instant{});
    EXPECT_EQ(odd[0].lines, std::vector<std::string>{""});
    EXPECT_EQ(odd[0].authorName, "");
}

TEST(BlameGrouping, GapsAndLaterDetailsSplitAndStayPerLine) {
    const std::string a(40, 'a'), b(40, 'b');
    // One commit, final lines 1, 2 and 4: two runs.
    const auto gapped = GitOutputParser::parseBlame(a + " 1 1 2\nauthor Ann\nsummary s\nfilename f\n\tone\n" +
                                                    a + " 2 2\n\ttwo\n" + a + " 3 4 1\n\tfour\n");
    ASSERT_EQ(gapped.size(), 2u);
    EXPECT_EQ(gapped[0].lines, (std::vector<std::string>{"one", "two"}));
    EXPECT_EQ(gapped[1].finalLineNumber, 4);
    EXPECT_EQ(gapped[1].authorName, "Ann");

    // A commit met again under another file name (git repeats "filename" then): the earlier run
    // keeps the name it was read with.
    const auto renamed = GitOutputParser::parseBlame(
        a + " 1 1 1\nauthor Ann\nauthor-time 100\nsummary s\nfilename old\n\tone\n" + b +
        " 2 2 1\nauthor Bob\nsummary t\nfilename f\n\ttwo\n" + a + " 9 3 1\nprevious " + b +
        " older name\nfilename new\n\tthree\n");
    ASSERT_EQ(renamed.size(), 3u);
    EXPECT_EQ(renamed[0].filename, "old");
    EXPECT_EQ(renamed[2].filename, "new");
    EXPECT_EQ(renamed[2].authorName, "Ann");
    EXPECT_EQ(renamed[2].authorDate, Instant{seconds{100}});
    EXPECT_EQ(renamed[1].authorName, "Bob");
    EXPECT_EQ(renamed[1].authorDate, Instant{});
}
