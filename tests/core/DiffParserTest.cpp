// The unified-diff and name-status parsers on text captured from git, and on the corners where a
// line inside a hunk looks like a header.
#include "core/parsers/DiffParser.h"

#include <gtest/gtest.h>

#include <set>

namespace orvel {
namespace {

using GitOutputParser::parseDiff;
using GitOutputParser::parseNameStatus;

// `git show --format=` of a commit that deletes, renames, copies, changes a mode, edits a binary
// file, a file without a final newline and a file whose lines begin with "-- " and "++ ".
const std::string shownCommit = "diff --git a/-lead.txt b/-lead.txt\n"
                                "deleted file mode 100644\n"
                                "index 587be6b..0000000\n"
                                "--- a/-lead.txt\n"
                                "+++ /dev/null\n"
                                "@@ -1 +0,0 @@\n"
                                "-x\n"
                                "diff --git a/bin.dat b/bin.dat\n"
                                "index d5d0b8b..5c12d1c 100644\n"
                                "Binary files a/bin.dat and b/bin.dat differ\n"
                                "diff --git \"a/caf\\351.txt\" \"b/caf\\351.txt\"\n"
                                "old mode 100644\n"
                                "new mode 100755\n"
                                "diff --git a/dir with space/file b.txt b/copy.txt\n"
                                "similarity index 100%\n"
                                "copy from dir with space/file b.txt\n"
                                "copy to copy.txt\n"
                                "diff --git a/dash.txt b/dash.txt\n"
                                "index 6daa69e..60a8965 100644\n"
                                "--- a/dash.txt\n"
                                "+++ b/dash.txt\n"
                                "@@ -1,3 +1,3 @@\n"
                                "--- dashed\n"
                                " ++ plussed\n"
                                "+++ added\n"
                                " plain\n"
                                "diff --git a/dir with space/file b.txt b/dir with space/file b.txt\n"
                                "index 6a6182f..feba507 100644\n"
                                "--- a/dir with space/file b.txt\t\n"
                                "+++ b/dir with space/file b.txt\t\n"
                                "@@ -1,5 +1,5 @@\n"
                                " alpha\n"
                                "-beta\n"
                                "+BETA\n"
                                " gamma\n"
                                " delta\n"
                                " epsilon\n"
                                "@@ -8,5 +8,5 @@ eta\n"
                                " theta\n"
                                " iota\n"
                                " kappa\n"
                                "-lambda\n"
                                "+LAMBDA\n"
                                " mu\n"
                                "diff --git a/nonl.txt b/nonl.txt\n"
                                "index 20cbb4d..0ba6e66 100644\n"
                                "--- a/nonl.txt\n"
                                "+++ b/nonl.txt\n"
                                "@@ -1 +1 @@\n"
                                "-no newline\n"
                                "\\ No newline at end of file\n"
                                "+no newline changed\n"
                                "\\ No newline at end of file\n"
                                "diff --git a/a.txt b/renamed.txt\n"
                                "similarity index 100%\n"
                                "rename from a.txt\n"
                                "rename to renamed.txt\n";

TEST(DiffParser, ReadsEveryKindOfFileOfACommit) {
    const DiffResult diff = parseDiff(shownCommit);
    ASSERT_EQ(diff.files.size(), 8u);
    struct Expected {
        std::string oldPath, newPath;
        DiffStatus status;
        bool isBinary;
        std::size_t hunks;
        int additions, deletions;
    };
    const Expected expected[] = {
        {"-lead.txt", "", DiffStatus::deleted, false, 1, 0, 1},
        {"bin.dat", "bin.dat", DiffStatus::modified, true, 0, 0, 0},
        // A quoted path has no " b/": both sides stay empty, nothing is unquoted.
        {"", "", DiffStatus::typeChanged, false, 0, 0, 0},
        {"dir with space/file b.txt", "copy.txt", DiffStatus::copied, false, 0, 0, 0},
        {"dash.txt", "dash.txt", DiffStatus::modified, false, 1, 1, 1},
        // The tab git writes after a path with a blank stays.
        {"dir with space/file b.txt\t", "dir with space/file b.txt\t", DiffStatus::modified, false, 2, 2, 2},
        {"nonl.txt", "nonl.txt", DiffStatus::modified, false, 1, 1, 1},
        {"a.txt", "renamed.txt", DiffStatus::renamed, false, 0, 0, 0},
    };
    for (std::size_t i = 0; i < diff.files.size(); ++i) {
        SCOPED_TRACE(i);
        const FileDiff& file = diff.files[i];
        EXPECT_EQ(file.oldPath, expected[i].oldPath);
        EXPECT_EQ(file.newPath, expected[i].newPath);
        EXPECT_EQ(file.status, expected[i].status);
        EXPECT_EQ(file.isBinary, expected[i].isBinary);
        EXPECT_EQ(file.hunks.size(), expected[i].hunks);
        EXPECT_EQ(file.additions, expected[i].additions);
        EXPECT_EQ(file.deletions, expected[i].deletions);
    }
}

TEST(DiffParser, LinesThatLookLikeHeadersInsideAHunkAreChanges) {
    const FileDiff file = parseDiff(shownCommit).files[4];
    ASSERT_EQ(file.hunks[0].lines.size(), 4u);
    const auto& lines = file.hunks[0].lines;
    EXPECT_EQ(lines[0].type, DiffLineType::deletion);
    EXPECT_EQ(lines[0].content, "-- dashed");
    EXPECT_EQ(lines[1].type, DiffLineType::context);
    EXPECT_EQ(lines[1].content, "++ plussed");
    EXPECT_EQ(lines[2].type, DiffLineType::addition);
    EXPECT_EQ(lines[2].content, "++ added");
    EXPECT_EQ(file.oldPath, "dash.txt");

    // A line keeps its text when the result it came from is gone.
    DiffLine line;
    line = parseDiff(shownCommit).files.at(4).hunks.at(0).lines.at(2);
    EXPECT_EQ(line.content, "++ added");
    EXPECT_EQ(line.content.size(), 8u);
}

TEST(DiffParser, NumbersLinesAndReadsHunkHeaders) {
    const DiffResult diff = parseDiff(shownCommit);
    const DiffHunk& second = diff.files[5].hunks[1];
    EXPECT_EQ(std::tie(second.oldStart, second.oldCount, second.newStart, second.newCount),
              std::make_tuple(8, 5, 8, 5));
    EXPECT_EQ(second.sectionHeader, "eta");
    EXPECT_EQ(diff.files[5].hunks[0].sectionHeader, std::nullopt);
    const auto& lines = second.lines;
    ASSERT_EQ(lines.size(), 6u);
    EXPECT_EQ(lines[0].oldLineNumber, 8);
    EXPECT_EQ(lines[0].newLineNumber, 8);
    EXPECT_EQ(lines[3].type, DiffLineType::deletion);
    EXPECT_EQ(lines[3].oldLineNumber, 11);
    EXPECT_EQ(lines[3].newLineNumber, std::nullopt);
    EXPECT_EQ(lines[4].oldLineNumber, std::nullopt);
    EXPECT_EQ(lines[4].newLineNumber, 11);
    EXPECT_EQ(lines[5].oldLineNumber, 12);
    EXPECT_EQ(lines[5].newLineNumber, 12);

    // "@@ -1 +1 @@": counts of 1; the marker line keeps its text and moves no number.
    const DiffHunk& single = diff.files[6].hunks[0];
    EXPECT_EQ(std::tie(single.oldStart, single.oldCount, single.newStart, single.newCount),
              std::make_tuple(1, 1, 1, 1));
    ASSERT_EQ(single.lines.size(), 4u);
    EXPECT_EQ(single.lines[1].type, DiffLineType::noNewlineAtEnd);
    EXPECT_EQ(single.lines[1].content, "\\ No newline at end of file");
    EXPECT_EQ(single.lines[1].oldLineNumber, std::nullopt);
    EXPECT_EQ(single.lines[2].newLineNumber, 1);

    const DiffHunk& removal = diff.files[0].hunks[0];
    EXPECT_EQ(std::tie(removal.oldStart, removal.oldCount, removal.newStart, removal.newCount),
              std::make_tuple(1, 1, 0, 0));
}

TEST(DiffParser, EveryParseMintsFreshDistinctIds) {
    const DiffResult first = parseDiff(shownCommit);
    const DiffResult second = parseDiff(shownCommit);
    std::set<QUuid> ids{first.id, second.id};
    std::size_t count = 2;
    for (const auto* diff : {&first, &second}) {
        for (const auto& file : diff->files) {
            ids.insert(file.id);
            ++count;
            for (const auto& hunk : file.hunks) {
                ids.insert(hunk.id);
                ++count;
                for (const auto& line : hunk.lines) {
                    EXPECT_EQ(line.id.version(), QUuid::Random);
                    ids.insert(line.id);
                    ++count;
                }
            }
        }
    }
    EXPECT_EQ(ids.size(), count);
    EXPECT_FALSE(first.id.isNull());
}

TEST(DiffParser, EdgeCases) {
    EXPECT_TRUE(parseDiff("").files.empty());
    EXPECT_TRUE(parseDiff("commit 1234\nAuthor: someone\n\n    message\n").files.empty());

    // A new file: "new file mode" and "--- /dev/null".
    const FileDiff added =
        parseDiff("diff --git a/n.txt b/n.txt\nnew file mode 100644\nindex 0000000..e69de29\n"
                  "--- /dev/null\n+++ b/n.txt\n@@ -0,0 +1,3 @@\n+a\n+b\n+c\n")
            .files.at(0);
    EXPECT_EQ(added.status, DiffStatus::added);
    EXPECT_EQ(added.oldPath, "");
    EXPECT_EQ(added.newPath, "n.txt");
    EXPECT_EQ(std::tie(added.hunks[0].oldStart, added.hunks[0].oldCount), std::make_tuple(0, 0));
    EXPECT_EQ(added.additions, 3);

    // A mode change with hunks keeps them; a blank last line inside a hunk makes no line.
    const FileDiff moded = parseDiff("diff --git a/s.sh b/s.sh\nold mode 100644\nnew mode 100755\n"
                                     "--- a/s.sh\n+++ b/s.sh\n@@ -3,4 +3,5 @@ func main() {\n x\n+y\n\n")
                               .files.at(0);
    EXPECT_EQ(moded.status, DiffStatus::typeChanged);
    EXPECT_EQ(moded.hunks[0].sectionHeader, "func main() {");
    EXPECT_EQ(moded.hunks[0].lines.size(), 2u);

    // " b/" inside a path: split at the last one, then corrected by the "---" and "+++" lines.
    const DiffResult split = parseDiff("diff --git a/x b/y b/x b/y\n");
    EXPECT_EQ(split.files.at(0).oldPath, "x b/y b/x");
    EXPECT_EQ(split.files.at(0).newPath, "y");
    const FileDiff corrected =
        parseDiff("diff --git a/x b/y b/x b/y\n--- a/x b/y\n+++ b/x b/y\n@@ -1 +1 @@\n-1\n+2\n").files.at(0);
    EXPECT_EQ(corrected.oldPath, "x b/y");
    EXPECT_EQ(corrected.newPath, "x b/y");

    // Headers that don't read fall back to 0 and 1; a carriage return stays in the content.
    const DiffHunk odd = parseDiff("diff --git a/w b/w\n@@ -x,y +7 @@\n+line\r\n").files.at(0).hunks.at(0);
    EXPECT_EQ(std::tie(odd.oldStart, odd.oldCount, odd.newStart, odd.newCount), std::make_tuple(0, 1, 7, 1));
    EXPECT_EQ(odd.lines.at(0).content, "line\r");
}

// The records without their ids, which every parse mints afresh.
DiffResult withoutIds(DiffResult diff) {
    diff.id = {};
    for (auto& file : diff.files) {
        file.id = {};
        for (auto& hunk : file.hunks) {
            hunk.id = {};
            for (auto& line : hunk.lines)
                line.id = {};
        }
    }
    return diff;
}

// Fed in pieces of every size, lines cut anywhere, the stream reads what the whole text reads,
// with and without a final newline.
TEST(DiffParser, StreamInPiecesReadsAsTheWholeText) {
    for (const std::string& text : {shownCommit, shownCommit.substr(0, shownCommit.size() - 1)}) {
        const DiffResult whole = withoutIds(parseDiff(text));
        for (std::size_t piece = 1; piece <= text.size(); piece += piece < 40 ? 1 : 97) {
            GitOutputParser::DiffStreamParser stream;
            for (std::size_t at = 0; at < text.size(); at += piece)
                stream.append(std::string_view(text).substr(at, piece));
            EXPECT_EQ(withoutIds(stream.finish()), whole) << piece;
        }
    }
}

TEST(DiffStatusCodes, OneLetterPerStatusInDeclaredOrder) {
    std::string letters;
    for (int i = 0; i <= static_cast<int>(DiffStatus::unmerged); ++i) {
        letters += codeOf(static_cast<DiffStatus>(i));
        EXPECT_EQ(diffStatusFromCode(letters.back()), static_cast<DiffStatus>(i));
    }
    EXPECT_EQ(letters, "ACDMRTU");
    EXPECT_EQ(diffStatusFromCode('X'), std::nullopt);
}

TEST(NameStatusParser, ReadsStatusesAndRenames) {
    const auto changes = parseNameStatus("A\tadded.txt\nM\tdir with space/m.txt\nD\t-lead.txt\n"
                                         "R100\ta.txt\trenamed.txt\nC075\tsrc.txt\tcopy.txt\nT\tlink\n"
                                         "X\tunknown\n\nlonely\n");
    ASSERT_EQ(changes.size(), 7u);
    const TrackedStatus statuses[] = {
        TrackedStatus::added,  TrackedStatus::modified,    TrackedStatus::deleted, TrackedStatus::renamed,
        TrackedStatus::copied, TrackedStatus::typeChanged, TrackedStatus::modified};
    for (std::size_t i = 0; i < changes.size(); ++i) {
        EXPECT_EQ(changes[i].status, FileStatusKind::tracked(statuses[i], TrackedStatus::unmodified)) << i;
        EXPECT_EQ(changes[i].displayStatus, std::nullopt);
    }
    EXPECT_EQ(changes[1].path, "dir with space/m.txt");
    EXPECT_EQ(changes[3].path, "renamed.txt");
    EXPECT_EQ(changes[3].originalPath, "a.txt");
    EXPECT_EQ(changes[3].id(), "renamed.txt");
    EXPECT_EQ(changes[0].originalPath, std::nullopt);
}

} // namespace
} // namespace orvel
