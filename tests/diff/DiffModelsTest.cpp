// The diff subsystem's pure pieces on tables of cases: language detection, the highlighter's
// rules and priorities, the side-by-side pairing, file inspection on real files, and finding a
// file of git's diff by its raw path when git quoted it.
#include "diff/FileOpenPolicy.h"
#include "diff/GitPathQuoting.h"
#include "diff/SourceLanguage.h"
#include "diff/SplitRows.h"
#include "diff/SyntaxHighlighter.h"

#include "core/parsers/DiffParser.h"
#include "core/support/UserDefaults.h"
#include "support/GitFixture.h"

#include <filesystem>

#include <gtest/gtest.h>

using namespace orvel;

namespace {

using T = SyntaxTokenType;
using L = SourceLanguage;

TEST(SourceLanguageTest, ExtensionFirstThenExactName) {
    const std::pair<const char*, L> cases[] = {
        {"a/b.SWIFT", L::swift},
        {"x.h", L::c},
        {"x.mm", L::cpp},
        {"x.tsx", L::typescript},
        {"Dockerfile", L::dockerfile},
        {"Dockerfile.dev", L::unknown},
        {"Makefile", L::shell},
        {"dir/.gitignore", L::shell},
        {".env", L::shell},
        {"README.md", L::markdown},
        {"noext", L::unknown},
        {"q.Sql", L::sql},
        {"c.less", L::css},
    };
    for (const auto& [path, language] : cases)
        EXPECT_EQ(detectLanguage(path), language) << path;
}

struct HighlightCase {
    L language;
    const char* text;
    std::vector<std::pair<const char*, T>> tokens;
};

TEST(GitPathQuotingTest, EveryChangedFileOfARealDiffIsFoundByItsRawPath) {
    const test::TempRepo repo;
    const std::vector<std::string> paths{"plain.txt",       "\xc3\xa9t\xc3\xa9.txt", "quote\"d.txt",
                                         "back\\slash.txt", "tab\there.txt",         "\xff-not-utf8.txt",
                                         "with blank.txt"};
    for (const std::string& path : paths)
        repo.write(path, "one\n");
    repo.write("gone \xc3\xa9.txt", "x\n");
    repo.write("old \xc3\xa9.txt", "moved\nwith\nlines\n");
    repo.commitAll("start");
    for (const std::string& path : paths)
        repo.write(path, "two\n");
    repo.git({"rm", "-q", "gone \xc3\xa9.txt"});
    repo.git({"mv", "old \xc3\xa9.txt", "new \xc3\xa9.txt"});
    repo.git({"add", "-A"});

    const DiffResult diff = GitOutputParser::parseDiff(repo.git({"diff", "--cached", "-M"}));
    std::vector<std::string> wanted = paths;
    wanted.push_back("new \xc3\xa9.txt");
    for (const std::string& path : wanted)
        EXPECT_TRUE(std::any_of(diff.files.begin(), diff.files.end(), [&](const FileDiff& file) {
            return diffPathNames(file.newPath, path);
        })) << path;
    EXPECT_TRUE(std::any_of(diff.files.begin(), diff.files.end(), [](const FileDiff& file) {
        return file.newPath.empty() && diffPathNames(file.oldPath, "gone \xc3\xa9.txt");
    }));
    EXPECT_FALSE(diffPathNames("\"b/plain.txt\"", "plain.txt")) << "git never quotes a plain path";
}

TEST(SyntaxHighlighterTest, RulesClaimTextInPriorityOrder) {
    const HighlightCase cases[] = {
        {L::swift,
         "@available #if import String",
         {{"@available", T::directive}, {"#if", T::directive}, {"import", T::keyword}, {"String", T::type}}},
        {L::sql, "select SELECT", {{"select", T::keyword}, {"SELECT", T::keyword}}},
        {L::python, "TRUE True", {{"TRUE", T::type}, {"True", T::keyword}}},
        {L::c, "// \"x\" int", {{"// \"x\" int", T::comment}}},
        {L::c, "\"a//b\"", {{"//b\"", T::comment}}},
        {L::python, "'a#b'", {{"#b'", T::comment}}},
        {L::cpp, "1_000 0xFF 1e5", {{"1_000", T::number}, {"0xFF", T::number}, {"1e5", T::number}}},
        {L::ruby, "=begin x", {{"begin", T::keyword}}},
        {L::ruby, "=begin\nx\n=end", {{"=begin\nx\n=end", T::comment}}},
        {L::markdown,
         "/* a */ \"s\" 42 Name",
         {{"/* a */", T::comment}, {"\"s\"", T::string}, {"42", T::number}, {"Name", T::type}}},
        {L::unknown, "int x = 1; // c", {}},
        {L::javascript, "`a${b}` // c", {{"`a${b}`", T::string}, {"// c", T::comment}}},
        {L::typescript, "@Input() x", {{"@Input", T::directive}}},
        {L::javascript, "@Input() x", {{"Input", T::type}}},
        {L::rust, "#[derive(Debug)] fn", {{"#[derive(Debug)]", T::directive}, {"fn", T::keyword}}},
        {L::go, "'a' + \"b\\\"c\"", {{"'a'", T::string}, {"\"b\\\"c\"", T::string}}},
        {L::java, "\"no 'single'\" 'c'", {{"\"no 'single'\"", T::string}}},
        {L::shell, "echo $HOME # note", {{"echo", T::keyword}, {"HOME", T::type}, {"# note", T::comment}}},
        {L::css, "a { color: red; } /* c */", {{"/* c */", T::comment}}},
        {L::html, "<!-- c --> <p class=\"x\">", {{"<!-- c -->", T::comment}, {"\"x\"", T::string}}},
        {L::dockerfile, "FROM x # y", {{"FROM", T::type}, {"# y", T::comment}}},
        {L::json, "{\"k\": 1}", {{"\"k\"", T::string}, {"1", T::number}}},
        {L::kotlin, "fun main", {{"fun", T::keyword}}},
        {L::c, "/* open", {}},
        {L::c, "héllo /* é */ x", {{"/* é */", T::comment}}},
    };
    for (const auto& [language, text, expected] : cases) {
        const QString source = QString::fromUtf8(text);
        std::vector<std::pair<QString, T>> actual;
        for (const SyntaxToken& token : highlightTokens(source, language))
            actual.emplace_back(source.mid(token.start, token.length), token.type);
        std::vector<std::pair<QString, T>> wanted;
        for (const auto& [part, type] : expected)
            wanted.emplace_back(QString::fromUtf8(part), type);
        EXPECT_EQ(actual, wanted) << text;
    }
}

// Each case is a hunk written as line kinds (d deletion, a addition, c context, \ no newline) and
// the rows as left/right cell kinds (D, A, C, and . for an empty cell).
TEST(SplitRowsTest, PairsRunsByPosition) {
    const std::pair<const char*, std::vector<const char*>> cases[] = {
        {"ddda", {"DA", "D.", "D."}},
        {"daaa", {"DA", ".A", ".A"}},
        {"dca", {"D.", "CC", ".A"}},
        {"aa", {".A", ".A"}},
        {"d\\a", {"DA"}},
        {"c\\", {"CC"}},
        {"", {}},
    };
    for (const auto& [kinds, expected] : cases) {
        DiffHunk hunk;
        int oldNumber = 1, newNumber = 1;
        for (const char kind : std::string(kinds)) {
            DiffLine line;
            line.type = kind == 'd'   ? DiffLineType::deletion
                        : kind == 'a' ? DiffLineType::addition
                        : kind == 'c' ? DiffLineType::context
                                      : DiffLineType::noNewlineAtEnd;
            if (kind == 'd' || kind == 'c')
                line.oldLineNumber = oldNumber++;
            if (kind == 'a' || kind == 'c')
                line.newLineNumber = newNumber++;
            line.content = TextSlice(std::string(1, kind));
            hunk.lines.push_back(line);
        }
        auto letter = [](SplitCellType type) {
            return type == SplitCellType::deletion   ? 'D'
                   : type == SplitCellType::addition ? 'A'
                   : type == SplitCellType::context  ? 'C'
                                                     : '.';
        };
        std::vector<std::string> actual;
        for (const SplitDiffRow& row : splitRows(hunk)) {
            actual.push_back({letter(row.leftType), letter(row.rightType)});
            EXPECT_EQ(row.leftType == SplitCellType::empty, !row.leftLineNumber) << kinds;
            EXPECT_EQ(row.rightType == SplitCellType::empty, row.rightContent.empty()) << kinds;
            // Each cell names the line it shows, which a line action in this view acts on.
            for (const auto& [line, type, number] :
                 {std::tuple{row.leftLine, row.leftType, row.leftLineNumber},
                  std::tuple{row.rightLine, row.rightType, row.rightLineNumber}})
                EXPECT_TRUE(type == SplitCellType::empty
                                ? line == -1
                                : line >= 0 && (hunk.lines[std::size_t(line)].oldLineNumber == number ||
                                                hunk.lines[std::size_t(line)].newLineNumber == number))
                    << kinds;
        }
        EXPECT_EQ(actual, std::vector<std::string>(expected.begin(), expected.end())) << kinds;
    }
}

struct InspectionCase {
    const char* name;
    std::string content;
    FileOpenPolicy policy;
    bool isBinary;
    std::optional<long> lineCount;
    std::optional<TextEncoding> encoding;
};

TEST(FileInspectionTest, PolicyFollowsSizeLinesAndBytes) {
    std::string lines15000;
    for (int i = 0; i < 14999; ++i)
        lines15000 += "x\n";
    std::string zeroAfterSample(8001, 'a');
    zeroAfterSample += '\0';
    const std::string png("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16);
    const InspectionCase cases[] = {
        {"empty.txt", "", FileOpenPolicy::text, false, 1, TextEncoding::utf8},
        {"lines.txt", lines15000, FileOpenPolicy::text, false, 15000, TextEncoding::utf8},
        {"more.txt", lines15000 + "x\n", FileOpenPolicy::largeText, false, 15001, TextEncoding::utf8},
        {"huge.txt", std::string(10'000'001, 'a'), FileOpenPolicy::largeText, false, std::nullopt,
         TextEncoding::utf8},
        {"picture.png", png, FileOpenPolicy::image, true, std::nullopt, std::nullopt},
        {"archive.zip", std::string("PK\3\4\0\0", 6), FileOpenPolicy::unsupported, true, std::nullopt,
         std::nullopt},
        {"blob", std::string("\0\1", 2), FileOpenPolicy::unsupported, true, std::nullopt, std::nullopt},
        {"late.txt", zeroAfterSample, FileOpenPolicy::text, false, 1, TextEncoding::utf8},
        {"wide.txt", std::string("\xff\xfe\x61\0b\0", 6), FileOpenPolicy::unsupported, true, std::nullopt,
         std::nullopt},
        {"latin.txt", "caf\xe9!", FileOpenPolicy::text, false, 1, TextEncoding::latin1},
        {"icon.svg", "<svg/>", FileOpenPolicy::text, false, 1, TextEncoding::utf8},
    };
    test::TempDir folder;
    for (const auto& [name, content, policy, isBinary, lineCount, encoding] : cases) {
        test::writeFile(folder / name, content);
        const FileInspection inspection = inspectFile(folder / name, {});
        EXPECT_EQ(inspection.policy, policy) << name;
        EXPECT_EQ(inspection.metadata.isBinary, isBinary) << name;
        EXPECT_EQ(inspection.metadata.lineCount, lineCount) << name;
        EXPECT_EQ(inspection.metadata.encoding, encoding) << name;
        EXPECT_EQ(inspection.metadata.size, content.size()) << name;
    }

    // A file that can't be opened counts as empty text; a folder lists its entries in order.
    std::filesystem::create_symlink(folder / "missing", folder / "dangling");
    const FileInspection unreadable = inspectFile(folder / "dangling", {});
    EXPECT_EQ(unreadable.policy, FileOpenPolicy::text);
    EXPECT_EQ(unreadable.metadata.size, 0u);
    std::filesystem::create_directory(folder / "dir");
    test::writeFile(folder / "dir/b", "");
    test::writeFile(folder / "dir/a", "");
    const FileInspection directory = inspectFile(folder / "dir", {});
    EXPECT_EQ(directory.policy, FileOpenPolicy::directory);
    EXPECT_EQ(directory.metadata.directoryEntries, (std::vector<std::string>{"a", "b"}));
}

TEST(FileInspectionTest, LimitsAreClampedSettings) {
    const std::tuple<QVariant, QVariant, std::uint64_t, long> cases[] = {
        {{}, {}, 10'000'000, 15'000},
        {0, 5, 1'000'000, 10'000},
        {500, 50, 100'000'000, 30'000},
        {QStringLiteral("x"), 20, 10'000'000, 20'000},
    };
    for (const auto& [sizeMB, linesK, sizeBytes, lineCount] : cases) {
        InMemoryUserDefaults defaults;
        if (sizeMB.isValid())
            defaults.setValue(QStringLiteral("largeFileSizeMB"), sizeMB);
        if (linesK.isValid())
            defaults.setValue(QStringLiteral("largeFileLineCountK"), linesK);
        const InspectionLimits limits = InspectionLimits::read(defaults);
        EXPECT_EQ(limits.sizeBytes, sizeBytes) << sizeMB.toString().toStdString();
        EXPECT_EQ(limits.lineCount, lineCount) << linesK.toString().toStdString();
    }
}

} // namespace
