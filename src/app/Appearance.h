// The stored appearance: "light" or "dark" sets a palette for the whole application, anything
// else keeps the desktop's own.
#pragma once

#include <QString>

namespace orvel {

void applyAppearance(const QString& appearance);

} // namespace orvel
