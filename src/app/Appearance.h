// The stored appearance ("appearance"): "light" and "dark" give the whole application a palette made
// from the catalogue theme's tokens of that scheme, and follow the theme when it changes; anything
// else ("system") keeps the desktop's own palette.
#pragma once

#include <QString>

namespace orvel {

void applyAppearance(const QString& appearance);

} // namespace orvel
