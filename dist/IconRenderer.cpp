// Renders the program's scalable icon at the pixel sizes of the desktop's icon theme, so that small
// sizes need no scaling at run time: `orvel_icon_renderer <icon.svg> <folder> <size>...` writes
// <folder>/<size>x<size>/apps/<name of the svg>.png for each size.
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv) {
    if (argc < 4) {
        std::fputs("usage: orvel_icon_renderer <icon.svg> <folder> <size>...\n", stderr);
        return 2;
    }
    const QString source = QString::fromLocal8Bit(argv[1]);
    const QString folder = QString::fromLocal8Bit(argv[2]);
    QSvgRenderer renderer(source);
    if (!renderer.isValid()) {
        std::fprintf(stderr, "orvel_icon_renderer: %s is no SVG image\n", argv[1]);
        return 1;
    }
    const QString name = QFileInfo(source).completeBaseName() + QStringLiteral(".png");
    for (int index = 3; index < argc; ++index) {
        const int size = std::atoi(argv[index]);
        if (size <= 0) {
            std::fprintf(stderr, "orvel_icon_renderer: %s is no size\n", argv[index]);
            return 2;
        }
        QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        renderer.render(&painter);
        painter.end();
        const QString apps = QStringLiteral("%1/%2x%2/apps").arg(folder).arg(size);
        if (!QDir().mkpath(apps) || !image.save(apps + QLatin1Char('/') + name)) {
            std::fprintf(stderr, "orvel_icon_renderer: cannot write %s\n",
                         qPrintable(apps + QLatin1Char('/') + name));
            return 1;
        }
    }
    return 0;
}
