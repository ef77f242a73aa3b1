// The languages the highlighter knows, and which one a file's path is written in.
#pragma once

#include <string_view>

namespace orvel {

enum class SourceLanguage : char {
    swift,
    python,
    javascript,
    typescript,
    go,
    rust,
    c,
    cpp,
    java,
    ruby,
    kotlin,
    dart,
    php,
    shell,
    sql,
    html,
    css,
    yaml,
    json,
    toml,
    markdown,
    dockerfile,
    unknown
};

// By the extension first, then by the exact file name ("Dockerfile", "Makefile", ".gitignore"...),
// both compared in lower case.
SourceLanguage detectLanguage(std::string_view path);

} // namespace orvel
