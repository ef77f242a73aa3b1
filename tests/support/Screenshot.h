// Widget tests write a picture of each main view, so that a person can look at what a user sees.
#pragma once

#include <QCoreApplication>
#include <QDir>
#include <QEvent>
#include <QPixmap>
#include <QString>
#include <QWidget>

namespace orvel::test {

// Lays `widget` out at `size` and writes "<build>/screenshots/<name>.png"; answers the file's path.
inline QString saveScreenshot(QWidget& widget, const QString& name, QSize size = QSize(1280, 800)) {
    const QString folder = QStringLiteral(ORVEL_SCREENSHOT_DIR);
    QDir().mkpath(folder);
    widget.resize(size);
    widget.show();
    // Layouts asked for since the last turn of the event loop are done first, as a shown window
    // would be before it is painted.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    const QString path = folder + QLatin1Char('/') + name + QStringLiteral(".png");
    widget.grab().save(path);
    return path;
}

} // namespace orvel::test
