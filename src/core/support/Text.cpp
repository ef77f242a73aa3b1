#include "core/support/Text.h"

namespace orvel {

namespace {

std::string trimmedOf(std::string_view text, std::string_view characters) {
    const auto first = text.find_first_not_of(characters);
    if (first == std::string_view::npos)
        return {};
    const auto last = text.find_last_not_of(characters);
    return std::string(text.substr(first, last - first + 1));
}

} // namespace

std::string trimmed(std::string_view text) { return trimmedOf(text, " \t\r\n\v\f"); }

std::string trimmedBlanks(std::string_view text) { return trimmedOf(text, " \t"); }

std::string trimmedNewlines(std::string_view text) { return trimmedOf(text, "\n"); }

std::vector<std::string_view> splitFields(std::string_view text, char separator) {
    std::vector<std::string_view> fields;
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t end = text.find(separator, start);
        if (end == std::string_view::npos)
            end = text.size();
        fields.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    return fields;
}

std::vector<std::string_view> splitLines(std::string_view text) {
    return splitFields(text, '\n');
}

} // namespace orvel
