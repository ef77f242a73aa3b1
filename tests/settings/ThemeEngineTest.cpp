#include "settings/ThemeFixture.h"

#include "settings/ThemeDecoder.h"
#include "support/LogCapture.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

namespace orvel {
namespace {

QJsonObject fonts() {
    const QJsonObject font{{"size", 13}, {"weight", "regular"}, {"design", "default"}};
    return {
        {"heading", font}, {"body", font}, {"caption", font}, {"monospaced", font}, {"commitMessage", font}};
}

TEST(ThemeDecoderTest, RequiresEveryKeyButFontsAndFamilyAndNormalisesColours) {
    const struct {
        const char* what;
        std::function<void(QJsonObject&)> change;
        bool decodes;
    } cases[] = {
        {"the file as shipped", [](QJsonObject&) {}, true},
        {"colour without '#'",
         [](QJsonObject& o) {
             edit(o, {"colors", "toast", "notice"}, "34C759");
         },
         true},
        {"colour as a hex object",
         [](QJsonObject& o) {
             edit(o, {"colors", "toast", "notice"}, QJsonObject{{"hex", "#34C759"}});
         },
         true},
        {"fonts without family", [](QJsonObject& o) { o.insert("fonts", fonts()); }, true},
        {"unknown keys",
         [](QJsonObject& o) {
             edit(o, {"colors", "extra"}, 1);
         },
         true},
        {"no caption in fonts",
         [](QJsonObject& o) {
             o.insert("fonts", fonts());
             edit(o, {"fonts", "caption"}, {});
         },
         false},
        {"no weight in a font",
         [](QJsonObject& o) {
             o.insert("fonts", fonts());
             edit(o, {"fonts", "body", "weight"}, {});
         },
         false},
        {"no name", [](QJsonObject& o) { o.remove("name"); }, false},
        {"no key of a group",
         [](QJsonObject& o) {
             edit(o, {"colors", "syntax", "plain"}, {});
         },
         false},
        {"fractional version", [](QJsonObject& o) { o.insert("version", 1.5); }, false},
        {"colour as a number",
         [](QJsonObject& o) {
             edit(o, {"colors", "diff", "context"}, 7);
         },
         false},
    };
    for (const auto& c : cases) {
        QJsonObject json = builtInThemeJSON();
        c.change(json);
        if (!c.decodes) {
            EXPECT_THROW(decodeTheme(bytesOf(json), false), ThemeDecodeError) << c.what;
            continue;
        }
        const Theme theme = decodeTheme(bytesOf(json), false);
        EXPECT_EQ(theme.id, "orvel") << c.what;
        EXPECT_EQ(theme.colors.toast.notice.hex, "#34C759") << c.what;
    }
    EXPECT_THROW(decodeTheme("{\"id\": ", true), ThemeDecodeError);
    EXPECT_THROW(decodeTheme("[1]", true), ThemeDecodeError);
}

using ThemeEngineTest = ThemeEngineFixture;

TEST_F(ThemeEngineTest, StartsWithTheBuiltInThemesAndTheStoredChoices) {
    test::LogCapture log;
    defaults.setValue("selectedThemeID", "orvel-night");
    defaults.setValue("orvelThemeID", "no-such-theme");
    const int refresh = engine.refreshID();
    engine.start(defaults);
    EXPECT_TRUE(log.contains("op=theme.init builtIn=3 external=0 activeId=orvel-night"))
        << log.text().toStdString();
    EXPECT_GT(engine.refreshID(), refresh);
    EXPECT_EQ(engine.currentTheme().name, "Orvel Night");
    ASSERT_TRUE(engine.currentTheme().fonts);

    // An id the catalogue doesn't have renders the default palette and stays stored.
    EXPECT_EQ(engine.tokens(ColorScheme::dark).window, themeCatalogue().front().palette.dark.window);
    engine.saveSnapshot();
    engine.commitTheme();
    EXPECT_EQ(defaults.string("orvelThemeID"), "no-such-theme");

    defaults.setValue("selectedThemeID", "gone");
    engine.start(defaults);
    EXPECT_EQ(engine.currentTheme().id, engine.builtInThemes().front().id);
}

TEST_F(ThemeEngineTest, CatalogueHasTwentyThreeCompletePalettes) {
    const auto& catalogue = themeCatalogue();
    ASSERT_EQ(catalogue.size(), 23u);
    QSet<QString> ids;
    for (const OrvelTheme& theme : catalogue) {
        ids.insert(theme.id);
        for (const ThemeTokens* tokens : {&theme.palette.dark, &theme.palette.light}) {
            EXPECT_EQ(tokens->lanes.size(), 4u) << theme.id.toStdString();
            for (const QColor& colour : {tokens->window, tokens->fg, tokens->info, tokens->stroke})
                EXPECT_TRUE(colour.isValid()) << theme.id.toStdString();
        }
        EXPECT_LT(theme.palette.dark.window.lightnessF(), 0.5) << theme.id.toStdString();
        EXPECT_GT(theme.palette.light.window.lightnessF(), 0.5) << theme.id.toStdString();
    }
    EXPECT_EQ(ids.size(), 23);
    EXPECT_EQ(catalogue.front().id, "dala");
}

TEST_F(ThemeEngineTest, FontsNeverGoBelowEightPointsAndCustomisationIsStored) {
    test::LogCapture log;
    engine.setFontSizeOffset(-4);
    for (const auto& [size, expected] : {std::pair{10.0, 8.0}, {9.0, 8.0}, {14.0, 10.0}})
        EXPECT_EQ(engine.fontSize(ThemeFont{size, "regular", "default", std::nullopt}), expected) << size;
    EXPECT_EQ(defaults.value("themeFontSize").toDouble(), -4);

    engine.setMonoFontFamily(QStringLiteral("DejaVu Sans Mono"));
    EXPECT_EQ(engine.font(ThemeFont{13, "bold", "default", QStringLiteral("DejaVu Sans")}, true).family(),
              "DejaVu Sans Mono");
    EXPECT_EQ(defaults.string("themeMonoFontFamily"), "DejaVu Sans Mono");
    engine.setMonoFontFamily(std::nullopt);
    EXPECT_FALSE(defaults.value("themeMonoFontFamily").isValid());
    EXPECT_TRUE(log.contains("op=font.customized family=DejaVu Sans Mono mono=true"));
}

TEST_F(ThemeEngineTest, PreviewChangesNothingStoredAndRevertRestoresEverything) {
    test::LogCapture log;
    engine.saveSnapshot();
    engine.previewTheme("orvel-day");
    engine.previewTheme("neo-almaty"); // only the catalogue has it: the file theme stays
    engine.setFontSizeOffset(3);
    engine.setUIFontFamily(QStringLiteral("DejaVu Serif"));
    EXPECT_EQ(engine.currentTheme().id, "orvel-day");
    EXPECT_EQ(engine.tokens(ColorScheme::light).accent, catalogueTheme("neo-almaty").palette.light.accent);
    EXPECT_FALSE(defaults.value("selectedThemeID").isValid());

    engine.revertTheme();
    EXPECT_EQ(engine.currentTheme().id, "orvel");
    EXPECT_EQ(engine.tokens(ColorScheme::light).accent, catalogueTheme("dala").palette.light.accent);
    EXPECT_EQ(engine.fontSizeOffset(), 0);
    EXPECT_FALSE(engine.uiFontFamily());
    EXPECT_FALSE(defaults.value("themeUIFontFamily").isValid());
    engine.revertTheme();
    EXPECT_TRUE(log.contains("op=theme.revert hadSnapshot=true themeId=orvel"));
    EXPECT_TRUE(log.contains("op=theme.revert hadSnapshot=false"));

    engine.saveSnapshot();
    engine.previewTheme("orvel-day");
    engine.previewTheme("shoq");
    engine.commitTheme();
    EXPECT_EQ(defaults.string("selectedThemeID"), "orvel-day");
    EXPECT_EQ(defaults.string("orvelThemeID"), "shoq");
    EXPECT_FALSE(engine.pendingThemeID());
    EXPECT_FALSE(engine.snapshot());
}

TEST_F(ThemeEngineTest, ImportKeepsTheBytesMovesAReimportToTheEndAndRemovalFallsBack) {
    const std::string first = writeTheme("custom", "First");
    engine.importTheme(QString::fromStdString(first));
    engine.importTheme(QString::fromStdString(writeTheme("other", "Other")));
    const std::string second = writeTheme("custom", "Second");
    engine.importTheme(QString::fromStdString(second));
    ASSERT_EQ(engine.externalThemes().size(), 2u);
    EXPECT_EQ(engine.externalThemes().back().name, "Second");
    EXPECT_FALSE(engine.externalThemes().back().isBuiltIn);
    EXPECT_EQ(test::readFile(externalFile("custom")), test::readFile(second));

    // The next start finds the imported files.
    engine.start(defaults);
    EXPECT_EQ(engine.externalThemes().size(), 2u);

    engine.saveSnapshot();
    engine.previewTheme("custom");
    engine.commitTheme();
    engine.removeTheme("custom");
    EXPECT_FALSE(std::filesystem::exists(externalFile("custom")));
    EXPECT_EQ(engine.externalThemes().size(), 1u);
    EXPECT_EQ(engine.currentTheme().id, engine.builtInThemes().front().id);
    EXPECT_EQ(defaults.string("selectedThemeID"), engine.currentTheme().id);
    EXPECT_THROW(engine.removeTheme("custom"), std::runtime_error);
}

} // namespace
} // namespace orvel
