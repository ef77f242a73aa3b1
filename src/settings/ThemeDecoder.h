// Decodes a ".theme.json" file. Only "fonts" and a font's "family" may be left out; every other
// key is required at every level, and a file that lacks one fails as a whole: a theme is never
// merged with a default. Unknown keys are ignored.
#pragma once

#include "settings/Theme.h"

#include <QByteArray>

#include <stdexcept>

namespace orvel {

// The reason a file is not a theme, in words for the user.
class ThemeDecodeError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// Throws ThemeDecodeError; never crashes on any input.
Theme decodeTheme(const QByteArray& bytes, bool isBuiltIn);

} // namespace orvel
