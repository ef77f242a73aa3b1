#include "content/Readme.h"

#include <QFile>
#include <QStringDecoder>

namespace orvel {

namespace {

constexpr const char* candidateNames[] = {"README.md",       "readme.md",  "Readme.md",
                                          "README.markdown", "README.txt", "README"};

// Valid UTF-8 without NUL bytes; anything else is no text to show.
std::optional<QString> decodedText(const QByteArray& bytes) {
    if (bytes.contains('\0'))
        return std::nullopt;
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = decoder.decode(bytes);
    if (decoder.hasError())
        return std::nullopt;
    return text;
}

} // namespace

bool Readme::isMarkdown() const {
    return fileName.endsWith(QLatin1String(".md"), Qt::CaseInsensitive) ||
           fileName.endsWith(QLatin1String(".markdown"), Qt::CaseInsensitive);
}

std::optional<Readme> findReadme(const std::string& folder) {
    const QString root = QFile::decodeName(QByteArray::fromStdString(folder));
    for (const char* name : candidateNames) {
        QFile file(root + QLatin1Char('/') + QLatin1String(name));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const std::optional<QString> text = decodedText(file.readAll());
        if (!text)
            continue;
        auto [kept, isCut] = cutToLines(*text, Readme::maxLines);
        return Readme{QLatin1String(name), std::move(kept), isCut};
    }
    return std::nullopt;
}

std::pair<QString, bool> cutToLines(const QString& text, int maxLines) {
    qsizetype position = -1;
    for (int line = 0; line < maxLines; ++line) {
        position = text.indexOf(QLatin1Char('\n'), position + 1);
        if (position < 0)
            return {text, false};
    }
    // A line feed that ends the last kept line leaves nothing out.
    if (position + 1 >= text.size())
        return {text, false};
    return {text.left(position), true};
}

} // namespace orvel
