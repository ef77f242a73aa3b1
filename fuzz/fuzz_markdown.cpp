// Feeds arbitrary bytes to the Markdown renderer, which draws any README of any cloned repository:
// it must never crash, never pass raw markup through, and never ask for an image.
#include "content/MarkdownHtml.h"
#include "content/Readme.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    orvel::MarkdownStyle style;
    style.monoFamily = QStringLiteral("monospace");
    const QString html = orvel::markdownToHtml(text, style);
    if (html.contains(QLatin1String("<img")) || html.contains(QLatin1String("<script")))
        __builtin_trap();
    const auto [kept, isCut] = orvel::cutToLines(QString::fromUtf8(text.data(), static_cast<qsizetype>(size)), 3);
    if (kept.count(QLatin1Char('\n')) > 3 || (isCut && kept.count(QLatin1Char('\n')) != 2))
        __builtin_trap();
    return 0;
}
