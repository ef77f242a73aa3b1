// Feeds arbitrary bytes to the reader of git's prepared commit message, which must keep some of the
// text or none without crashing.
#include "core/parsers/PreparedMessageParser.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto message = orvel::GitOutputParser::parsePreparedMessage(text);
    if (!message)
        return 0;
    // Never empty, never longer than the input, never a comment line, never a blank line or blanks
    // at its end.
    if (message->empty() || message->size() > text.size() || message->starts_with('#') ||
        message->find("\n#") != std::string::npos || message->front() == '\n' || message->back() == ' ' ||
        message->back() == '\t' || message->back() == '\r' || message->back() == '\n')
        __builtin_trap();
    return 0;
}
