// Markdown to the HTML subset that QTextDocument draws. cmark-gfm parses the text (with the table
// extension); the walk below draws headings, paragraphs, code, lists, rules, quotes and tables,
// and turns everything else (raw HTML, images, unknown blocks) into its plain text, so that a
// README can neither load a resource nor inject markup.
#pragma once

#include <QColor>
#include <QString>

#include <string_view>

namespace orvel {

struct MarkdownStyle {
    QColor text;
    QColor secondaryText; // block quotes and their bar
    QColor codeBackground;
    QColor grid; // table lines
    QColor link;
    double bodyPointSize = 10;
    QString monoFamily;
};

// Never fails: any text is Markdown. Blocks nested deeper than a fixed limit show as plain text.
QString markdownToHtml(std::string_view markdown, const MarkdownStyle& style);

} // namespace orvel
