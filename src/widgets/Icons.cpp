#include "widgets/Icons.h"

#include <QFile>
#include <QPainter>

// The bundled drawings are compiled into this static library and nothing refers to them by name,
// so the linker would leave them out unless they are initialised here. Outside any namespace, as
// the resource's symbol is.
static void initialiseBundledIcons() {
    Q_INIT_RESOURCE(resources);
}

namespace orvel {

QIcon themedIcon(const QString& name) {
    static const bool initialised = (initialiseBundledIcons(), true);
    Q_UNUSED(initialised);
    const QString bundled = QStringLiteral(":/icons/%1.svg").arg(name);
    return QIcon::fromTheme(name, QFile::exists(bundled) ? QIcon(bundled) : QIcon());
}

QPixmap tintedPixmap(const QIcon& icon, int size, const QColor& colour, qreal devicePixelRatio) {
    QPixmap pixmap = icon.pixmap(QSize(size, size), devicePixelRatio);
    QPainter painter(&pixmap);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(pixmap.rect(), colour);
    return pixmap;
}

} // namespace orvel
