// Small byte-string helpers shared by the commands and parsers: trimming and line splitting.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// Without leading and trailing white space and newlines.
std::string trimmed(std::string_view text);
// Without leading and trailing blanks (spaces and tabs) only.
std::string trimmedBlanks(std::string_view text);
// Without leading and trailing newlines only.
std::string trimmedNewlines(std::string_view text);
// The pieces between `separator` characters; a trailing separator adds no empty piece.
std::vector<std::string_view> splitFields(std::string_view text, char separator);
// The pieces between "\n" characters; a trailing newline adds no empty piece.
std::vector<std::string_view> splitLines(std::string_view text);

} // namespace orvel
