// A theme's colour as written in its file: "#RRGGBB" or "#RRGGBBAA". Anything that does not parse
// renders neutral gray, never an error. QColor reads eight digits as AARRGGBB, so theme strings go
// through parseThemeColor, never straight to QColor.
#pragma once

#include <QColor>
#include <QString>

namespace orvel {

struct ThemeColor {
    QString hex; // always begins with "#"

    QColor color() const;
};

QColor parseThemeColor(QStringView text);

} // namespace orvel
