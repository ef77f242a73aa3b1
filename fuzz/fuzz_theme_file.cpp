// Feeds arbitrary bytes to the theme-file decoder, which must decode them or refuse them with its
// own error, and never hand back a colour without its leading "#".
#include "settings/ThemeDecoder.h"

#include <cstddef>
#include <cstdint>

namespace {

bool hasHash(const orvel::ThemeColor& colour) {
    return colour.hex.startsWith(u'#');
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    try {
        const orvel::Theme theme = orvel::decodeTheme(bytes, false);
        const orvel::ThemeColors& c = theme.colors;
        for (const auto& colour : c.graph.lanePalette)
            if (!hasHash(colour))
                __builtin_trap();
        if (!hasHash(c.status.success) || !hasHash(c.syntax.plain) || !hasHash(c.general.diffDeletionsStat) ||
            theme.isBuiltIn)
            __builtin_trap();
    } catch (const orvel::ThemeDecodeError&) {
    }
    return 0;
}
