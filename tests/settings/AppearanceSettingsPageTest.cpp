#include "settings/AppearanceSettingsPage.h"

#include "settings/ThemeFixture.h"
#include "support/Await.h"

#include <filesystem>
#include <tuple>

namespace orvel {
namespace {

using AppearanceSettingsPageTest = ThemeEngineFixture;

using EngineState = std::tuple<QString, QString, double, std::optional<QString>, std::optional<QString>>;

EngineState stateOf(const ThemeEngine& engine) {
    return {engine.currentTheme().id, engine.activeCatalogueID(), engine.fontSizeOffset(),
            engine.uiFontFamily(), engine.monoFontFamily()};
}

TEST_F(AppearanceSettingsPageTest, ApplyKeepsThePreviewedThemesAndFontsAndCancelRestoresThem) {
    const EngineState stored{"orvel-night", "shoq", 1, QStringLiteral("DejaVu Serif"), std::nullopt};
    const EngineState previewed{"orvel-day", "aiqyn", 3, std::nullopt, QStringLiteral("DejaVu Sans Mono")};
    const struct {
        const char* what;
        bool apply;
        EngineState expected;
    } cases[] = {{"apply", true, previewed}, {"cancel", false, stored}};
    for (const auto& c : cases) {
        defaults.setValue("selectedThemeID", "orvel-night");
        defaults.setValue("orvelThemeID", "shoq");
        defaults.setValue("themeFontSize", 1.0);
        defaults.setValue("themeUIFontFamily", "DejaVu Serif");
        defaults.remove("themeMonoFontFamily");
        engine.start(defaults);
        AppearanceSettingsPage page(engine);
        test::await(page.load());

        engine.previewTheme("aiqyn");
        engine.previewFileTheme("orvel-day"); // a file theme keeps the palette chosen before it
        engine.setFontSizeOffset(3);
        engine.setUIFontFamily(std::nullopt);
        engine.setMonoFontFamily(QStringLiteral("DejaVu Sans Mono"));
        EXPECT_EQ(stateOf(engine), previewed) << c.what;
        EXPECT_EQ(engine.tokens(ColorScheme::dark).accent, catalogueTheme("aiqyn").palette.dark.accent)
            << c.what;

        if (c.apply)
            test::await(page.apply());
        else
            page.revert();
        EXPECT_EQ(stateOf(engine), c.expected) << c.what;
        engine.start(defaults); // what the store holds is what the next start shows
        EXPECT_EQ(stateOf(engine), c.expected) << c.what;
        EXPECT_TRUE(page.errorMessage().isEmpty()) << c.what;
    }
}

TEST_F(AppearanceSettingsPageTest, RefusedImportsChangeNothingAndAReimportOfTheThemeInForceShowsAtOnce) {
    AppearanceSettingsPage page(engine);
    test::await(page.load());
    const struct {
        const char* what;
        std::string file;
        const char* reason; // what the message names
    } refused[] = {
        {"a colour missing",
         writeTheme("custom", "NoPlain",
                    [](QJsonObject& o) {
                        edit(o, {"colors", "syntax", "plain"}, {});
                    }),
         "colors.syntax.plain"},
        {"fonts without a caption",
         writeTheme("custom", "NoCaption",
                    [](QJsonObject& o) {
                        const QJsonObject font{{"size", 13}, {"weight", "bold"}, {"design", "default"}};
                        o.insert("fonts", QJsonObject{{"heading", font},
                                                      {"body", font},
                                                      {"monospaced", font},
                                                      {"commitMessage", font}});
                    }),
         "fonts.caption"},
        {"no such file", work / "absent.json", "absent.json"},
        {"an id that is not a file name", writeTheme("../custom", "Escape"), "can't be the id"},
    };
    for (const auto& c : refused) {
        EXPECT_FALSE(test::await(page.importTheme(QString::fromStdString(c.file)))) << c.what;
        EXPECT_TRUE(page.errorMessage().contains(c.reason))
            << c.what << ": " << page.errorMessage().toStdString();
        EXPECT_TRUE(engine.externalThemes().empty()) << c.what;
        EXPECT_FALSE(std::filesystem::exists(externalFile("custom"))) << c.what;
    }

    ASSERT_TRUE(test::await(page.importTheme(QString::fromStdString(writeTheme("custom", "Custom")))));
    EXPECT_TRUE(page.errorMessage().isEmpty());
    engine.previewFileTheme("custom");
    ASSERT_TRUE(test::await(
        page.importTheme(QString::fromStdString(writeTheme("custom", "Custom 2", [](QJsonObject& o) {
            edit(o, {"colors", "general", "accent"}, "#123456");
        })))));
    EXPECT_EQ(engine.currentTheme().name, "Custom 2");
    EXPECT_EQ(engine.currentTheme().colors.general.accent.hex, "#123456");
    ASSERT_EQ(engine.externalThemes().size(), 1u);

    // Removing the theme in force falls back at once; Cancel can't bring back a deleted file.
    test::await(page.apply());
    test::await(page.load());
    ASSERT_TRUE(test::await(page.removeTheme("custom")));
    page.revert();
    EXPECT_EQ(engine.currentTheme().id, engine.builtInThemes().front().id);
    EXPECT_EQ(defaults.string("selectedThemeID"), engine.builtInThemes().front().id);
    EXPECT_FALSE(test::await(page.removeTheme("custom")));
    EXPECT_FALSE(page.errorMessage().isEmpty());
}

} // namespace
} // namespace orvel
