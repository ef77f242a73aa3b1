#include "widgets/Icons.h"

#include <QFile>

namespace orvel {

QIcon themedIcon(const QString& name) {
    const QString bundled = QStringLiteral(":/icons/%1.svg").arg(name);
    return QIcon::fromTheme(name, QFile::exists(bundled) ? QIcon(bundled) : QIcon());
}

} // namespace orvel
