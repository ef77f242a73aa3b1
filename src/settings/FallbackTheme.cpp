// The colours the program uses when no theme file can be read.
#include "settings/Theme.h"

namespace orvel {

namespace {
ThemeColor hex(const char* text) {
    return ThemeColor{QString::fromLatin1(text)};
}
} // namespace

Theme fallbackTheme() {
    Theme theme;
    theme.id = QStringLiteral("orvel");
    theme.name = QStringLiteral("Orvel");
    theme.version = 1;
    theme.isBuiltIn = true;
    ThemeColors& c = theme.colors;
    c.status = {hex("#34C759"), hex("#FF9500"), hex("#FF3B30"), hex("#5AC8FA")};
    c.diff = {hex("#34C75926"), hex("#FF3B3026"), hex("#00000000"), hex("#8080801A")};
    c.fileStatus = {hex("#34C759"), hex("#FF3B30"), hex("#FF9500"), hex("#007AFF"), hex("#8E8E93")};
    c.graph.lanePalette = {hex("#007AFF"), hex("#34C759"), hex("#FF9500"), hex("#AF52DE"),
                           hex("#FF2D55"), hex("#5AC8FA"), hex("#FFCC00"), hex("#FF3B30")};
    c.graph.nodeOutline = hex("#1E1E1E");
    c.refs = {hex("#007AFF"), hex("#AF52DE"), hex("#FF9500"), hex("#34C759"), hex("#34C759")};
    c.sidebar = {hex("#007AFF33"), hex("#FFFFFF0F"), hex("#34C759"),
                 hex("#FF9500"),   hex("#34C759"),   hex("#FF9500")};
    c.toolbar = {hex("#FFFFFF14"), hex("#007AFF")};
    c.conflict = {hex("#FF9500"), hex("#FFFFFF"), hex("#FFFFFF4D")};
    c.toast = {hex("#34C759"), hex("#FF9500"), hex("#FF3B30")};
    c.syntax = {hex("#C775D1"), hex("#59C2D4"), hex("#DE8F66"), hex("#737F8C"), hex("#D1BA80"),
                hex("#99C7F0"), hex("#62BA6B"), hex("#CC9475"), hex("#E0E0E0")};
    c.general = {hex("#007AFF"), hex("#34C759"), hex("#FF3B30"), hex("#34C759"), hex("#FF3B30")};
    return theme;
}

} // namespace orvel
