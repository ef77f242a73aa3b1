// Every text the window paints by hand stands out from its background by at least 4.5 to 1 (the
// outline of a pill on a selected row by 3 to 1), in the light and the dark palette of every
// catalogue theme, under each built-in file theme: the sidebar's rows and their CURRENT badge, the
// conflict banner and its buttons, and the graph's texts and ref pills, selected or not.
#include "widgets/TextContrast.h"
#include "graph/ui/GraphRowStyle.h"
#include "merge/ui/ConflictBanner.h"
#include "settings/ThemeDecoder.h"
#include "settings/ThemeEngine.h"
#include "sidebar/ui/SidebarRowDelegate.h"
#include "widgets/TokenPalette.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

using namespace orvel;

namespace {

std::vector<Theme> builtInThemes() {
    std::vector<Theme> themes;
    const QDir folder(QStringLiteral(":/Themes"));
    for (const QString& name : folder.entryList({QStringLiteral("*.theme.json")})) {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
        themes.push_back(decodeTheme(file.readAll(), true));
    }
    return themes;
}

struct Pair {
    std::string what;
    QColor text;
    QColor background;
    double needed = textContrast;
};

std::vector<Pair> pairsOf(const Theme& theme, const ThemeTokens& tokens) {
    const QPalette palette = tokenPalette(tokens);
    std::vector<Pair> pairs;
    const QColor highlight = palette.color(QPalette::Highlight);
    pairs.push_back({"selected text", palette.color(QPalette::HighlightedText), highlight});

    for (const bool selected : {false, true}) {
        const SidebarRowColours row = SidebarRowColours::of(tokens, palette, selected);
        const std::string state = selected ? "selected sidebar row: " : "sidebar row: ";
        pairs.push_back({state + "name", row.text, row.background});
        pairs.push_back({state + "secondary text", row.secondary, row.background});
        pairs.push_back({state + "CURRENT badge", row.badgeText, row.badgeFill});
        if (!selected)
            pairs.push_back({state + "empty section's text", row.quiet, row.background});
    }

    const ConflictBannerColours banner = ConflictBannerColours::of(theme.colors.conflict);
    pairs.push_back({"conflict banner", banner.text, banner.background});
    pairs.push_back(
        {"conflict banner button", banner.buttonText, laidOver(banner.button, banner.background)});
    pairs.push_back({"pressed conflict banner button", banner.buttonText,
                     laidOver(banner.pressedButton, banner.background)});

    const GraphRowStyle rows = GraphRowStyle::from(theme, tokens, palette);
    const QColor base = palette.color(QPalette::Base);
    for (const auto& [what, colour] : {std::pair{"graph text", rows.text},
                                       {"graph author", rows.secondaryText},
                                       {"graph hash", rows.tertiaryText},
                                       {"working tree", rows.workingTreeCount},
                                       {"remote branch pill", rows.remoteBranch}})
        pairs.push_back({what, colour, base});
    const GraphRowStyle selected = rows.onSelection(highlight);
    pairs.push_back({"selected row: remote branch pill", selected.remoteBranch, highlight});
    for (const auto& [what, plain, onSelection] :
         {std::tuple{"local branch pill", rows.localBranch, selected.localBranch},
          {"tag pill", rows.tag, selected.tag},
          {"current branch pill", rows.currentBranch, selected.currentBranch}}) {
        pairs.push_back({what, rows.pillText(plain), plain});
        pairs.push_back({std::string("selected row: ") + what, selected.pillText(onSelection), onSelection});
        pairs.push_back(
            {std::string("selected row: shape of ") + what, onSelection, highlight, shapeContrast});
    }
    return pairs;
}

} // namespace

TEST(TextContrast, EveryPaintedTextReadsOnItsBackgroundInBothPalettesOfEveryTheme) {
    const std::vector<Theme> themes = builtInThemes();
    ASSERT_FALSE(themes.empty());
    for (const Theme& theme : themes)
        for (const OrvelTheme& catalogue : themeCatalogue())
            for (const auto& [scheme, tokens] :
                 {std::pair{"light", &catalogue.palette.light}, std::pair{"dark", &catalogue.palette.dark}})
                for (const Pair& pair : pairsOf(theme, *tokens)) {
                    const double ratio = contrastRatio(pair.text, pair.background);
                    EXPECT_GE(ratio, pair.needed)
                        << pair.what << ", " << theme.id.toStdString() << " with "
                        << catalogue.id.toStdString() << " " << scheme << ": "
                        << pair.text.name().toStdString() << " on " << pair.background.name().toStdString();
                }
}

// The measure itself, on pairs whose ratio is known.
TEST(TextContrast, TheRatioOfKnownPairs) {
    const struct {
        QColor text, background;
        double ratio;
    } cases[] = {
        {Qt::black, Qt::white, 21.0},
        {Qt::white, Qt::white, 1.0},
        {QColor(0x76, 0x76, 0x76), Qt::white, 4.54},
        {QColor(255, 255, 255, 0), Qt::black, 1.0}, // a transparent text shows its background
    };
    for (const auto& pair : cases)
        EXPECT_NEAR(contrastRatio(pair.text, pair.background), pair.ratio, 0.01)
            << pair.text.name().toStdString();
    const QColor moved = readableOn(QColor(0xFF, 0x95, 0x00), Qt::white);
    EXPECT_GE(contrastRatio(moved, QColor(0xFF, 0x95, 0x00)), textContrast);
    EXPECT_EQ(readableOn(Qt::white, Qt::black), QColor(Qt::black));
}
