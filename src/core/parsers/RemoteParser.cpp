#include "core/parsers/RemoteParser.h"

#include "core/support/Log.h"
#include "core/support/Text.h"

#include <map>
#include <optional>
#include <string>

namespace orvel::GitOutputParser {

namespace {

struct RemoteUrls {
    std::optional<std::string> fetch;
    std::optional<std::string> push;
};

// `rest` without its direction `marker` and the blank before it, or nothing when it doesn't end so.
std::optional<std::string_view> withoutDirection(std::string_view rest, std::string_view marker) {
    if (!rest.ends_with(marker))
        return std::nullopt;
    rest.remove_suffix(marker.size());
    if (rest.ends_with(' '))
        rest.remove_suffix(1);
    return rest;
}

} // namespace

std::vector<RemoteEntry> parseRemotes(std::string_view text) {
    // Ordered by name, which is the order of the result.
    std::map<std::string, RemoteUrls, std::less<>> remotes;
    for (const std::string_view line : splitLines(text)) {
        const auto tab = line.find('\t');
        if (tab == std::string_view::npos)
            continue;
        const std::string_view name = line.substr(0, tab);
        const std::string_view rest = line.substr(tab + 1);
        if (const auto url = withoutDirection(rest, "(fetch)"))
            remotes[std::string(name)].fetch = std::string(*url);
        else if (const auto pushUrl = withoutDirection(rest, "(push)"))
            remotes[std::string(name)].push = std::string(*pushUrl);
        else
            qCDebug(lcParser, "parseRemotes: dropped a line without a direction");
    }
    std::vector<RemoteEntry> entries;
    entries.reserve(remotes.size());
    for (auto& [name, urls] : remotes) {
        if (!urls.fetch)
            continue;
        std::string pushURL = urls.push ? std::move(*urls.push) : *urls.fetch;
        entries.push_back(RemoteEntry{name, std::move(*urls.fetch), std::move(pushURL)});
    }
    return entries;
}

} // namespace orvel::GitOutputParser
