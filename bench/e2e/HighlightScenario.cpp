// highlight-10k: the highlighter over a generated C++ file of 10,000 lines, whole, as the file
// view colours it. Reports megabytes a second (target at least 20); the patterns are compiled by
// the first round, which is not timed.
#include "e2e/Scenario.h"

#include "diff/SyntaxHighlighter.h"

#include <cstdio>

namespace orvel::bench {

namespace {

// Ordinary C++: includes, comments, a class with members, loops, strings and numbers.
QString generatedSource(int lines) {
    static const char* const shapes[] = {
        "#include <vector>",
        "// Walks the records of block %d and keeps the ones that matter.",
        "class Reader%d final : public Base {",
        "  public:",
        "    explicit Reader%d(const std::string& name) : name_(name), count_(0x1F) {}",
        "    int next(int value) const { return value * 31 + %d; }",
        "    /* a short note about item %d */",
        "    for (std::size_t i = 0; i < items.size(); ++i) {",
        "        if (items[i].weight > 1.5e3 && !items[i].name.empty())",
        "            result.push_back(Item{\"name %d\", i, nullptr});",
        "    }",
        "    static constexpr double ratio = 0.75; // tuned by hand",
        "    std::string label = \"value: \" + std::to_string(%d);",
        "};",
        "",
    };
    QString text;
    char line[160];
    for (int i = 0; i < lines; ++i) {
        std::snprintf(line, sizeof line, shapes[i % std::size(shapes)], i);
        text += QString::fromLatin1(line) + u'\n';
    }
    return text;
}

int runHighlight(const ScenarioOptions& options) {
    const QString source = generatedSource(options.tiny ? 500 : 10'000);
    const double megabytes = double(source.toUtf8().size()) / 1e6;
    std::size_t tokens = highlightTokens(source, SourceLanguage::cpp).size(); // compiles the patterns
    std::vector<double> times;
    for (int round = 0; round < std::max(options.rounds, 3); ++round)
        times.push_back(milliseconds([&] { tokens = highlightTokens(source, SourceLanguage::cpp).size(); }));
    const double ms = median(times);
    std::printf("scenario=%s ours_ms=%.2f mb=%.2f mb_per_s=%.1f tokens=%zu\n",
                options.tiny ? "highlight-10k-tiny" : "highlight-10k", ms, megabytes,
                ms > 0 ? megabytes / (ms / 1000.0) : 0.0, tokens);
    std::fflush(stdout);
    return tokens > 0 ? 0 : 1;
}

const ScenarioRegistration registration("highlight-10k", runHighlight);

} // namespace

} // namespace orvel::bench
