#include "widgets/Icons.h"

#include "support/Screenshot.h"

#include <QDirIterator>
#include <QGridLayout>
#include <QImage>
#include <QLabel>

#include <gtest/gtest.h>

namespace orvel {
namespace {

// Pixels that some stroke of the drawing covered.
int coveredPixels(const QIcon& icon) {
    const QImage image = icon.pixmap(QSize(16, 16)).toImage().convertToFormat(QImage::Format_ARGB32);
    int covered = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            covered += qAlpha(image.pixel(x, y)) > 0;
    return covered;
}

TEST(IconsTest, EveryNameTheProgramUsesHasADrawingWithoutAnIconTheme) {
    QIcon::setThemeSearchPaths({});
    QIcon::setThemeName(QString());
    const char* names[] = {"vcs-branch",     "vcs-commit",    "vcs-merge",
                           "vcs-pull",       "vcs-push",      "vcs-stash",
                           "vcs-tag",        "vcs-remote",    "vcs-fetch",
                           "folder",         "folder-open",   "document-new",
                           "edit-copy",      "edit-undo",     "edit-redo",
                           "dialog-warning", "dialog-error",  "dialog-information",
                           "view-refresh",   "edit-find",     "go-previous",
                           "go-next",        "list-add",      "list-remove",
                           "edit-delete",    "document-open", "repository",
                           "clone"};
    for (const char* name : names)
        EXPECT_GT(coveredPixels(themedIcon(QString::fromLatin1(name))), 4) << name;

    QWidget sheet;
    auto* grid = new QGridLayout(&sheet);
    int index = 0;
    for (QDirIterator bundled(QStringLiteral(":/icons")); bundled.hasNext(); ++index) {
        const QString path = bundled.next();
        EXPECT_GT(coveredPixels(QIcon(path)), 4) << path.toStdString();
        auto* label = new QLabel(&sheet);
        label->setPixmap(QIcon(path).pixmap(QSize(32, 32)));
        label->setToolTip(path);
        grid->addWidget(label, index / 10, index % 10);
    }
    test::saveScreenshot(sheet, QStringLiteral("bundled-icons"), QSize(420, 140));
}

} // namespace
} // namespace orvel
