#include "settings/IdentityMismatch.h"

namespace orvel {

std::optional<QString> emailInKeyLabel(const QString& label) {
    const qsizetype open = label.indexOf(u'<');
    if (open < 0)
        return std::nullopt;
    const qsizetype close = label.indexOf(u'>', open + 1);
    if (close < 0)
        return std::nullopt;
    QString email = label.mid(open + 1, close - open - 1);
    while (email.startsWith(u' '))
        email.remove(0, 1);
    while (email.endsWith(u' '))
        email.chop(1);
    return email;
}

} // namespace orvel
