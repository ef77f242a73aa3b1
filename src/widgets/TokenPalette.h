// The whole application's palette for the light or the dark appearance, made from the design
// tokens of the catalogue theme in force, so that the stock widgets match what views draw by hand.
#pragma once

#include "settings/ThemeTokens.h"

#include <QPalette>

namespace orvel {

QPalette tokenPalette(const ThemeTokens& tokens);

} // namespace orvel
