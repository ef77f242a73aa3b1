// Icons by freedesktop name from the desktop's theme, with a bundled drawing as the fallback, so
// that a desktop whose theme lacks a name (Adwaita has no version-control icons) still shows one.
#pragma once

#include <QColor>
#include <QIcon>
#include <QPixmap>
#include <QString>

namespace orvel {

// `name` is a freedesktop icon name; the fallback is ":/icons/<name>.svg" when bundled.
QIcon themedIcon(const QString& name);

// The icon drawn in one colour, for marks that carry a theme's meaning (a warning, an error).
QPixmap tintedPixmap(const QIcon& icon, int size, const QColor& colour, qreal devicePixelRatio);

} // namespace orvel
