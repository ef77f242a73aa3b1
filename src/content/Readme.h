// A repository's README as the landing page previews it: found among a fixed list of names in
// the root folder, read only when it is valid text, and cut to a number of lines so that a huge
// file previews at once.
#pragma once

#include <QString>

#include <optional>
#include <string>

namespace orvel {

struct Readme {
    static constexpr int maxLines = 1500;

    QString fileName;
    QString text;
    bool isCut = false; // lines past maxLines were left out

    // README.md and README.markdown are Markdown; README.txt and README are plain text.
    bool isMarkdown() const;
};

// Tries "README.md", "readme.md", "Readme.md", "README.markdown", "README.txt" and "README" in
// the folder, in this order, and answers the first that reads as UTF-8 text. Blocks on the disk:
// run it on a pool thread.
std::optional<Readme> findReadme(const std::string& folder);

// The first `maxLines` lines of `text`, by line feeds; whether anything was left out.
std::pair<QString, bool> cutToLines(const QString& text, int maxLines);

} // namespace orvel
