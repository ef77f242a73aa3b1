#include "settings/ThemeDecoder.h"

#include "settings/LocalizationManager.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <limits>

namespace orvel {

namespace {

[[noreturn]] void fail(const QString& reason) {
    throw ThemeDecodeError(reason.toStdString());
}

[[noreturn]] void failWrongType(const QString& path) {
    fail(localized("The theme's \"%1\" has the wrong type.", path));
}

ThemeColor decodeColor(const QJsonValue& value, const QString& path) {
    QString hex;
    if (value.isString())
        hex = value.toString();
    else if (value.isObject() && value.toObject().value(QLatin1String("hex")).isString())
        hex = value.toObject().value(QLatin1String("hex")).toString();
    else
        failWrongType(path);
    if (!hex.startsWith(u'#'))
        hex.prepend(u'#');
    return ThemeColor{hex};
}

// One JSON object of the file and its dotted path, for the messages.
class Reader {
  public:
    Reader(QJsonObject object, QString path) : object_(std::move(object)), path_(std::move(path)) {}

    Reader object(const char* key) const {
        const QJsonValue value = required(key);
        if (!value.isObject())
            failWrongType(pathOf(key));
        return Reader(value.toObject(), pathOf(key));
    }
    QString string(const char* key) const {
        const QJsonValue value = required(key);
        if (!value.isString())
            failWrongType(pathOf(key));
        return value.toString();
    }
    double number(const char* key) const {
        const QJsonValue value = required(key);
        if (!value.isDouble())
            failWrongType(pathOf(key));
        return value.toDouble();
    }
    int integer(const char* key) const {
        const double value = number(key);
        if (value != std::floor(value) || value < std::numeric_limits<int>::min() ||
            value > std::numeric_limits<int>::max())
            failWrongType(pathOf(key));
        return static_cast<int>(value);
    }
    ThemeColor color(const char* key) const { return decodeColor(required(key), pathOf(key)); }
    std::vector<ThemeColor> colors(const char* key) const {
        const QJsonValue value = required(key);
        if (!value.isArray())
            failWrongType(pathOf(key));
        std::vector<ThemeColor> colors;
        const QJsonArray array = value.toArray();
        for (qsizetype index = 0; index < array.size(); ++index)
            colors.push_back(
                decodeColor(array.at(index), QStringLiteral("%1[%2]").arg(pathOf(key)).arg(index)));
        return colors;
    }
    // Absent and null both mean "left out".
    bool has(const char* key) const {
        const auto found = object_.find(QLatin1String(key));
        return found != object_.end() && !found->isNull();
    }
    std::optional<QString> optionalString(const char* key) const {
        if (!has(key))
            return std::nullopt;
        return string(key);
    }

  private:
    QString pathOf(const char* key) const {
        return path_.isEmpty() ? QString::fromLatin1(key) : path_ + u'.' + QLatin1String(key);
    }
    QJsonValue required(const char* key) const {
        if (!has(key))
            fail(localized("The theme lacks \"%1\".", pathOf(key)));
        return object_.value(QLatin1String(key));
    }

    QJsonObject object_;
    QString path_;
};

ThemeColors decodeColors(const Reader& r) {
    ThemeColors c;
    const Reader status = r.object("status");
    c.status = {status.color("success"), status.color("warning"), status.color("error"),
                status.color("info")};
    const Reader diff = r.object("diff");
    c.diff = {diff.color("addition"), diff.color("deletion"), diff.color("context"),
              diff.color("hunkHeader")};
    const Reader files = r.object("fileStatus");
    c.fileStatus = {files.color("added"), files.color("deleted"), files.color("modified"),
                    files.color("renamed"), files.color("untracked")};
    const Reader graph = r.object("graph");
    c.graph = {graph.colors("lanePalette"), graph.color("nodeOutline")};
    const Reader refs = r.object("refs");
    c.refs = {refs.color("localBranch"), refs.color("remoteBranch"), refs.color("tag"), refs.color("head"),
              refs.color("currentBranch")};
    const Reader sidebar = r.object("sidebar");
    c.sidebar = {sidebar.color("selectionBackground"), sidebar.color("hoverBackground"),
                 sidebar.color("currentBranchIcon"),   sidebar.color("mainBranchIcon"),
                 sidebar.color("remoteBadgeOnline"),   sidebar.color("remoteBadgeLocal")};
    const Reader toolbar = r.object("toolbar");
    c.toolbar = {toolbar.color("buttonHover"), toolbar.color("activeIndicator")};
    const Reader conflict = r.object("conflict");
    c.conflict = {conflict.color("bannerBackground"), conflict.color("bannerForeground"),
                  conflict.color("buttonBackground")};
    const Reader toast = r.object("toast");
    c.toast = {toast.color("notice"), toast.color("warning"), toast.color("error")};
    const Reader syntax = r.object("syntax");
    c.syntax = {syntax.color("keyword"),  syntax.color("type"),      syntax.color("string"),
                syntax.color("comment"),  syntax.color("number"),    syntax.color("property"),
                syntax.color("function"), syntax.color("directive"), syntax.color("plain")};
    const Reader general = r.object("general");
    c.general = {general.color("accent"), general.color("stageAction"), general.color("unstageAction"),
                 general.color("diffAdditionsStat"), general.color("diffDeletionsStat")};
    return c;
}

ThemeFont decodeFont(const Reader& r) {
    return ThemeFont{r.number("size"), r.string("weight"), r.string("design"), r.optionalString("family")};
}

ThemeFonts decodeFonts(const Reader& r) {
    return ThemeFonts{decodeFont(r.object("heading")), decodeFont(r.object("body")),
                      decodeFont(r.object("caption")), decodeFont(r.object("monospaced")),
                      decodeFont(r.object("commitMessage"))};
}

} // namespace

Theme decodeTheme(const QByteArray& bytes, bool isBuiltIn) {
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError)
        fail(localized("The theme is not valid JSON: %1", error.errorString()));
    if (!document.isObject())
        fail(localized("The theme is not a JSON object."));
    const Reader root(document.object(), QString());
    Theme theme;
    theme.id = root.string("id");
    theme.name = root.string("name");
    theme.version = root.integer("version");
    theme.colors = decodeColors(root.object("colors"));
    if (root.has("fonts"))
        theme.fonts = decodeFonts(root.object("fonts"));
    theme.isBuiltIn = isBuiltIn;
    return theme;
}

} // namespace orvel
