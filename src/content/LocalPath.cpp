#include "content/LocalPath.h"

#include <QDir>

namespace orvel {

std::optional<QString> absoluteLocalPath(const QString& typed) {
    QString path = typed.trimmed();
    if (path == QLatin1String("~") || path.startsWith(QLatin1String("~/")))
        path.replace(0, 1, QDir::homePath());
    if (path.isEmpty() || !QDir::isAbsolutePath(path))
        return std::nullopt;
    return QDir::cleanPath(path);
}

} // namespace orvel
