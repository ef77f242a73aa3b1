#include "settings/ThemeColor.h"

namespace orvel {

namespace {

QColor neutralGray() {
    return QColor(128, 128, 128);
}

int hexDigit(QChar character) {
    const char16_t unit = character.unicode();
    if (unit >= u'0' && unit <= u'9')
        return unit - u'0';
    if (unit >= u'a' && unit <= u'f')
        return unit - u'a' + 10;
    if (unit >= u'A' && unit <= u'F')
        return unit - u'A' + 10;
    return -1;
}

} // namespace

QColor ThemeColor::color() const {
    return parseThemeColor(hex);
}

QColor parseThemeColor(QStringView text) {
    while (text.startsWith(u'#'))
        text = text.mid(1);
    while (text.endsWith(u'#'))
        text.chop(1);
    // A 64-bit scan that stops at the first character that is not a hexadecimal digit.
    quint64 value = 0;
    qsizetype digits = 0;
    for (const QChar character : text) {
        const int digit = hexDigit(character);
        if (digit < 0)
            break;
        value = (value << 4) | static_cast<quint64>(digit);
        ++digits;
    }
    if (digits == 0)
        return neutralGray();
    const auto byte = [&](int shift) { return static_cast<int>((value >> shift) & 0xff); };
    if (text.size() == 8)
        return QColor(byte(24), byte(16), byte(8), byte(0));
    if (text.size() == 6)
        return QColor(byte(16), byte(8), byte(0));
    return neutralGray();
}

} // namespace orvel
