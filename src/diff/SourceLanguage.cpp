#include "diff/SourceLanguage.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string>
#include <utility>

namespace orvel {

namespace {

std::string lowered(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return result;
}

constexpr std::array<std::pair<std::string_view, SourceLanguage>, 41> byExtension{{
    {"swift", SourceLanguage::swift},       {"py", SourceLanguage::python},
    {"js", SourceLanguage::javascript},     {"jsx", SourceLanguage::javascript},
    {"mjs", SourceLanguage::javascript},    {"cjs", SourceLanguage::javascript},
    {"ts", SourceLanguage::typescript},     {"tsx", SourceLanguage::typescript},
    {"go", SourceLanguage::go},             {"rs", SourceLanguage::rust},
    {"c", SourceLanguage::c},               {"h", SourceLanguage::c},
    {"cpp", SourceLanguage::cpp},           {"cc", SourceLanguage::cpp},
    {"cxx", SourceLanguage::cpp},           {"hpp", SourceLanguage::cpp},
    {"hxx", SourceLanguage::cpp},           {"mm", SourceLanguage::cpp},
    {"m", SourceLanguage::cpp},             {"java", SourceLanguage::java},
    {"rb", SourceLanguage::ruby},           {"kt", SourceLanguage::kotlin},
    {"kts", SourceLanguage::kotlin},        {"dart", SourceLanguage::dart},
    {"php", SourceLanguage::php},           {"sh", SourceLanguage::shell},
    {"bash", SourceLanguage::shell},        {"zsh", SourceLanguage::shell},
    {"fish", SourceLanguage::shell},        {"sql", SourceLanguage::sql},
    {"html", SourceLanguage::html},         {"htm", SourceLanguage::html},
    {"css", SourceLanguage::css},           {"scss", SourceLanguage::css},
    {"less", SourceLanguage::css},          {"yml", SourceLanguage::yaml},
    {"yaml", SourceLanguage::yaml},         {"json", SourceLanguage::json},
    {"toml", SourceLanguage::toml},         {"md", SourceLanguage::markdown},
    {"markdown", SourceLanguage::markdown},
}};

constexpr std::array<std::pair<std::string_view, SourceLanguage>, 6> byName{{
    {"dockerfile", SourceLanguage::dockerfile},
    {"containerfile", SourceLanguage::dockerfile},
    {"makefile", SourceLanguage::shell},
    {"gnumakefile", SourceLanguage::shell},
    {".gitignore", SourceLanguage::shell},
    {".env", SourceLanguage::shell},
}};

} // namespace

SourceLanguage detectLanguage(std::string_view path) {
    const auto slash = path.rfind('/');
    const std::string name = lowered(slash == std::string_view::npos ? path : path.substr(slash + 1));
    // A leading dot begins a hidden file's name, not an extension (".gitignore", ".env").
    const auto dot = name.rfind('.');
    const std::string extension = dot == std::string::npos || dot == 0 ? std::string() : name.substr(dot + 1);
    if (!extension.empty())
        for (const auto& [known, language] : byExtension)
            if (known == extension)
                return language;
    for (const auto& [known, language] : byName)
        if (known == name)
            return language;
    return SourceLanguage::unknown;
}

} // namespace orvel
