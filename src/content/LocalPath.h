// A folder the user typed into a dialog, as git needs it: trimmed, "~" standing for the home
// folder, and absolute, since the clone runs from "/" and nothing should depend on the program's
// working directory.
#pragma once

#include <QString>

#include <optional>

namespace orvel {

// The cleaned absolute path, or nothing when `typed` is empty or relative.
std::optional<QString> absoluteLocalPath(const QString& typed);

} // namespace orvel
