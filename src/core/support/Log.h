// Logging categories of the engine ("orvel.git", "orvel.parser", ...) and the one redaction helper
// that every error text passes through before it reaches a log.
#pragma once

#include <QLoggingCategory>

#include <string>
#include <string_view>

Q_DECLARE_LOGGING_CATEGORY(lcGit)
Q_DECLARE_LOGGING_CATEGORY(lcParser)
Q_DECLARE_LOGGING_CATEGORY(lcRepo)
Q_DECLARE_LOGGING_CATEGORY(lcRefs)
Q_DECLARE_LOGGING_CATEGORY(lcStaging)
Q_DECLARE_LOGGING_CATEGORY(lcDiff)
Q_DECLARE_LOGGING_CATEGORY(lcOps)
Q_DECLARE_LOGGING_CATEGORY(lcGraph)
Q_DECLARE_LOGGING_CATEGORY(lcWatcher)
Q_DECLARE_LOGGING_CATEGORY(lcAuth)
Q_DECLARE_LOGGING_CATEGORY(lcApp)
Q_DECLARE_LOGGING_CATEGORY(lcUi)

namespace orvel {

// Removes every "file://" and every occurrence of `homeDirectory` from `text`.
std::string redactForLog(std::string_view text, std::string_view homeDirectory);

// The same with the home directory of this process.
std::string redactForLog(std::string_view text);

} // namespace orvel
