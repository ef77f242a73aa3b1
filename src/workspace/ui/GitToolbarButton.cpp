#include "workspace/ui/GitToolbarButton.h"

#include "settings/ThemeEngine.h"

#include <QPainter>
#include <QStyle>

namespace orvel {

GitToolbarButton::GitToolbarButton(QWidget* parent) : QToolButton(parent) {
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setAutoRaise(true);
    connect(&ThemeEngine::shared(), &ThemeEngine::themeChanged, this, qOverload<>(&QWidget::update));
}

void GitToolbarButton::setBadge(int count) {
    if (count == badge_)
        return;
    badge_ = count;
    update();
}

void GitToolbarButton::paintEvent(QPaintEvent* event) {
    QToolButton::paintEvent(event);
    if (badge_ <= 0)
        return;
    QFont font = this->font();
    font.setPixelSize(10);
    font.setBold(true);
    const QString text = badge_ > 99 ? QStringLiteral("99+") : QString::number(badge_);
    const QFontMetrics metrics(font);
    const int height = metrics.height() + 2;
    const int width = std::max(height, metrics.horizontalAdvance(text) + height / 2);
    // Centred on the icon's top-right corner; the icon stands at the left after the frame's margin.
    const int margin = style()->pixelMetric(QStyle::PM_ButtonMargin, nullptr, this) / 2 + 2;
    const QRectF pill(margin + iconSize().width() - width / 2.0, 1, width, height);
    const ThemeTokens& tokens = ThemeEngine::shared().currentTokens();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(tokens.accent);
    painter.drawRoundedRect(pill, height / 2.0, height / 2.0);
    // The window's colour reads on the accent in both schemes.
    painter.setPen(tokens.window);
    painter.setFont(font);
    painter.drawText(pill, Qt::AlignCenter, text);
}

} // namespace orvel
