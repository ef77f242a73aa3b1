// A repository's README as the landing page previews it: found among a fixed list of names in
// the root folder, read only when it is a regular file of valid text, and cut to a number of bytes
// and lines so that a huge file previews at once.
#pragma once

#include <QString>
#include <QtGlobal>

#include <optional>
#include <string>

namespace orvel {

struct Readme {
    static constexpr int maxLines = 1500;
    // At most this much of the file is read; a README that a repository links to a device or a
    // pipe is no file at all and is passed over.
    static constexpr qint64 maxBytes = 1024 * 1024;

    QString fileName;
    QString text;
    bool isCut = false;       // lines past maxLines were left out
    bool isTruncated = false; // bytes past maxBytes were left out

    // README.md and README.markdown are Markdown; README.txt and README are plain text.
    bool isMarkdown() const;
};

// Tries "README.md", "readme.md", "Readme.md", "README.markdown", "README.txt" and "README" in
// the folder, in this order, and answers the first that is a regular file (a link is followed)
// and reads as UTF-8 text. Blocks on the disk: run it on a pool thread.
std::optional<Readme> findReadme(const std::string& folder);

// The first `maxLines` lines of `text`, by line feeds; whether anything was left out.
std::pair<QString, bool> cutToLines(const QString& text, int maxLines);

} // namespace orvel
