// A file theme: eleven groups of named colours and optional fonts, read from a ".theme.json" file
// or built in. Field order and names follow the file's keys.
#pragma once

#include "settings/ThemeColor.h"

#include <QString>

#include <optional>
#include <vector>

namespace orvel {

struct StatusColors {
    ThemeColor success, warning, error, info;
};
struct DiffColors {
    ThemeColor addition, deletion, context, hunkHeader;
};
struct FileStatusColors {
    ThemeColor added, deleted, modified, renamed, untracked;
};
struct GraphColors {
    std::vector<ThemeColor> lanePalette;
    ThemeColor nodeOutline;
};
struct RefColors {
    ThemeColor localBranch, remoteBranch, tag, head, currentBranch;
};
struct SidebarColors {
    ThemeColor selectionBackground, hoverBackground, currentBranchIcon, mainBranchIcon, remoteBadgeOnline,
        remoteBadgeLocal;
};
struct ToolbarColors {
    ThemeColor buttonHover, activeIndicator;
};
struct ConflictColors {
    ThemeColor bannerBackground, bannerForeground, buttonBackground;
};
struct ToastColors {
    ThemeColor notice, warning, error;
};
struct SyntaxColors {
    ThemeColor keyword, type, string, comment, number, property, function, directive, plain;
};
struct GeneralColors {
    ThemeColor accent, stageAction, unstageAction, diffAdditionsStat, diffDeletionsStat;
};

struct ThemeColors {
    StatusColors status;
    DiffColors diff;
    FileStatusColors fileStatus;
    GraphColors graph;
    RefColors refs;
    SidebarColors sidebar;
    ToolbarColors toolbar;
    ConflictColors conflict;
    ToastColors toast;
    SyntaxColors syntax;
    GeneralColors general;
};

struct ThemeFont {
    double size = 13;
    QString weight;
    QString design;
    std::optional<QString> family;
};

struct ThemeFonts {
    ThemeFont heading, body, caption, monospaced, commitMessage;
};

struct Theme {
    QString id;
    QString name;
    int version = 1;
    ThemeColors colors;
    std::optional<ThemeFonts> fonts;
    bool isBuiltIn = false;
};

// The theme used when no theme file can be read: id "orvel".
Theme fallbackTheme();

} // namespace orvel
