#include "core/support/Log.h"

#include <QDir>

Q_LOGGING_CATEGORY(lcGit, "orvel.git", QtWarningMsg)
Q_LOGGING_CATEGORY(lcParser, "orvel.parser", QtWarningMsg)
Q_LOGGING_CATEGORY(lcRepo, "orvel.repo", QtWarningMsg)
Q_LOGGING_CATEGORY(lcRefs, "orvel.refs", QtWarningMsg)
Q_LOGGING_CATEGORY(lcStaging, "orvel.staging", QtWarningMsg)
Q_LOGGING_CATEGORY(lcDiff, "orvel.diff", QtWarningMsg)
Q_LOGGING_CATEGORY(lcOps, "orvel.ops", QtWarningMsg)
Q_LOGGING_CATEGORY(lcGraph, "orvel.graph", QtWarningMsg)
Q_LOGGING_CATEGORY(lcWatcher, "orvel.watcher", QtWarningMsg)
Q_LOGGING_CATEGORY(lcAuth, "orvel.auth", QtWarningMsg)
Q_LOGGING_CATEGORY(lcApp, "orvel.app", QtWarningMsg)
Q_LOGGING_CATEGORY(lcUi, "orvel.ui", QtWarningMsg)

namespace orvel {

namespace {

void eraseAll(std::string& text, std::string_view needle) {
    if (needle.empty())
        return;
    std::string::size_type at = 0;
    while ((at = text.find(needle, at)) != std::string::npos)
        text.erase(at, needle.size());
}

} // namespace

std::string redactForLog(std::string_view text, std::string_view homeDirectory) {
    std::string redacted(text);
    eraseAll(redacted, "file://");
    // A home of "/" would take every slash out; it names no one, so it stays.
    if (homeDirectory.size() > 1)
        eraseAll(redacted, homeDirectory);
    return redacted;
}

std::string redactForLog(std::string_view text) {
    static const std::string home = QDir::homePath().toStdString();
    return redactForLog(text, home);
}

} // namespace orvel
