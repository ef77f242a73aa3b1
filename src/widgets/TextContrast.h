// Text that can be read on its background. The contrast of two colours is the ratio of their
// relative luminances, each plus 0.05, as the web's accessibility guidelines (WCAG 2) define it:
// from 1 (the same) to 21 (black on white). Body text needs 4.5, the outline of a shape 3.
#pragma once

#include <QColor>

namespace orvel {

inline constexpr double textContrast = 4.5;
inline constexpr double shapeContrast = 3.0;

// The opaque colour that a translucent `top` painted over `bottom` shows.
QColor laidOver(const QColor& top, const QColor& bottom);

// `foreground` is laid over `background` first when it is translucent; `background` counts as opaque.
double contrastRatio(const QColor& foreground, const QColor& background);

// `preferred` when it reaches `ratio` on `background`; otherwise `preferred` moved towards black or
// white, whichever stands further from the background, just far enough to reach it (or all the way
// where no colour does). Opaque.
QColor readableOn(const QColor& background, const QColor& preferred, double ratio = textContrast);

} // namespace orvel
