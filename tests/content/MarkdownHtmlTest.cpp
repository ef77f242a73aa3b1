// Markdown as the view draws it: what each kind of block becomes, what is never passed through
// (raw HTML, images), and that Qt's document reads the tables the walk writes.
#include "content/MarkdownHtml.h"

#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>

#include <gtest/gtest.h>

#include <string>

using namespace orvel;

namespace {

MarkdownStyle testStyle() {
    MarkdownStyle style;
    style.text = QColor(0x11, 0x11, 0x11);
    style.secondaryText = QColor(0x66, 0x66, 0x66);
    style.codeBackground = QColor(0xee, 0xee, 0xee);
    style.grid = QColor(0xcc, 0xcc, 0xcc);
    style.link = QColor(0x00, 0x55, 0xff);
    style.bodyPointSize = 10;
    style.monoFamily = QStringLiteral("DejaVu Sans Mono");
    return style;
}

QString html(const std::string& markdown) {
    return markdownToHtml(markdown, testStyle());
}

QString plainText(const std::string& markdown) {
    QTextDocument document;
    document.setHtml(html(markdown));
    return document.toPlainText();
}

} // namespace

TEST(MarkdownHtml, BlocksBecomeTheirHtmlAndUnsafeTextStaysText) {
    struct Case {
        const char* markdown;
        const char* contains;
        const char* absent;
    } cases[] = {
        {"```\nint a = 1 < 2;\n```\n", "int a = 1 &lt; 2;</pre>", nullptr},
        {"Use `git log` here", "font-family:'DejaVu Sans Mono'", nullptr},
        {"[site](https://example.com/a?b=1&c=2)", "<a href=\"https://example.com/a?b=1&amp;c=2\"", nullptr},
        {"<script>alert(1)</script>\n", "&lt;script&gt;alert(1)&lt;/script&gt;", "<script"},
        {"text <b>bold</b> end", "&lt;b&gt;bold&lt;/b&gt;", "<b>bold"},
        {"![the logo](logo.png)", "the logo", "<img"},
        {"3. three\n4. four\n", "3.</td>", nullptr},
        {"#### Four", "font-weight:600", "font-weight:700"},
        {"###### Six", "font-weight:600", "font-weight:700"},
        {"# One", "font-size:16.9pt", nullptr},
        {"> quoted", "color:#666666; white-space", nullptr},
        {"**strong** and *soft*", "<b>strong</b> and <i>soft</i>", nullptr},
    };
    for (const Case& c : cases) {
        const QString out = html(c.markdown);
        EXPECT_TRUE(out.contains(QLatin1String(c.contains))) << c.markdown << "\n" << out.toStdString();
        if (c.absent)
            EXPECT_FALSE(out.contains(QLatin1String(c.absent))) << c.markdown << "\n" << out.toStdString();
    }
    EXPECT_TRUE(html("").isEmpty());
}

TEST(MarkdownHtml, TableIsAGridWithItsHeaderAndCells) {
    QTextDocument document;
    document.setHtml(html("| Name | Size |\n|:-----|-----:|\n| a.txt | 12 |\n| b.txt | 7 |\n"));
    QTextTable* table = nullptr;
    for (QTextFrame* frame : document.rootFrame()->childFrames())
        table = table ? table : qobject_cast<QTextTable*>(frame);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->rows(), 3);
    EXPECT_EQ(table->columns(), 2);
    const auto cellText = [&](int row, int column) {
        const QTextTableCell cell = table->cellAt(row, column);
        return document.toPlainText().mid(cell.firstPosition(), cell.lastPosition() - cell.firstPosition());
    };
    EXPECT_EQ(cellText(0, 0), QStringLiteral("Name"));
    EXPECT_EQ(cellText(2, 1), QStringLiteral("7"));
    EXPECT_EQ(table->cellAt(0, 0).firstCursorPosition().charFormat().fontWeight(), QFont::Bold);
}

TEST(MarkdownHtml, DeepNestingShowsAsTextInsteadOfExhaustingTheStack) {
    const std::string quotes(20000, '>');
    EXPECT_TRUE(plainText(quotes + " deep").contains(QLatin1String("deep")));
    std::string list;
    for (int depth = 0; depth < 200; ++depth)
        list += std::string(static_cast<std::size_t>(depth) * 2, ' ') + "- level\n";
    EXPECT_TRUE(plainText(list).contains(QLatin1String("level")));
}
