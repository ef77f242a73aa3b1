// A light lexer: a few regular expressions per language, run over a whole text in a fixed order of
// priority; the first rule to claim a stretch of text keeps all of it. No parser and no state from
// one call to the next, so it may run on any thread.
#pragma once

#include "diff/SourceLanguage.h"

#include <QColor>
#include <QString>

#include <vector>

namespace orvel {

struct SyntaxColors;

enum class SyntaxTokenType : char { keyword, type, string, comment, number, property, function, directive, plain };

struct SyntaxToken {
    int start = 0;  // in UTF-16 units of the text
    int length = 0;
    SyntaxTokenType type = SyntaxTokenType::plain;

    bool operator==(const SyntaxToken&) const = default;
};

// The tokens of `text`, sorted by start and never overlapping; none for `unknown`.
std::vector<SyntaxToken> highlightTokens(const QString& text, SourceLanguage language);

// The theme's colour for a token type.
QColor syntaxColor(const SyntaxColors& colors, SyntaxTokenType type);

} // namespace orvel
