// Feeds arbitrary text to the colour parser, which must answer a valid colour for any input: the
// colour itself for six or eight hexadecimal digits, neutral gray otherwise, never caring how many
// "#" stand around the digits.
#include "settings/ThemeColor.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QColor colour = orvel::parseThemeColor(text);
    if (!colour.isValid() || colour != orvel::parseThemeColor(u'#' + text + u'#'))
        __builtin_trap();
    QStringView digits(text);
    while (digits.startsWith(u'#'))
        digits = digits.mid(1);
    while (digits.endsWith(u'#'))
        digits.chop(1);
    if (digits.size() != 8 && colour.alpha() != 255)
        __builtin_trap();
    if (digits.size() != 6 && digits.size() != 8 && colour != QColor(128, 128, 128))
        __builtin_trap();
    return 0;
}
