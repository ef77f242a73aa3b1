// Widget tests write a picture of each main view, so that a person can look at what a user sees.
#pragma once

#include <QDir>
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
    const QString path = folder + QLatin1Char('/') + name + QStringLiteral(".png");
    widget.grab().save(path);
    return path;
}

} // namespace orvel::test
