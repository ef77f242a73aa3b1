#include "app/Appearance.h"

#include <QApplication>
#include <QPalette>
#include <QStyle>

namespace orvel {

namespace {

QPalette darkPalette() {
    QPalette palette;
    const QColor window(0x2b, 0x2b, 0x2b), base(0x1e, 0x1e, 0x1e), text(0xe6, 0xe6, 0xe6);
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, window);
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::Button, window);
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::ToolTipBase, base);
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::Highlight, QColor(0x3d, 0x6f, 0xb4));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

} // namespace

void applyAppearance(const QString& appearance) {
    if (appearance == "dark")
        QApplication::setPalette(darkPalette());
    else if (appearance == "light")
        QApplication::setPalette(QApplication::style()->standardPalette());
    else
        QApplication::setPalette(QPalette());
}

} // namespace orvel
