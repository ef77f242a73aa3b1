#include "workspace/ui/GitToolbarButton.h"

#include "settings/ThemeEngine.h"

#include <QPainter>
#include <QStyleOptionToolButton>

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
    QStyleOptionToolButton option;
    initStyleOption(&option);
    const QRect icon = style()->subControlRect(QStyle::CC_ToolButton, &option, QStyle::SC_ToolButton, this);
    QFont font = this->font();
    font.setPointSizeF(font.pointSizeF() * 0.75);
    font.setBold(true);
    const QString text = badge_ > 99 ? QStringLiteral("99+") : QString::number(badge_);
    const QFontMetrics metrics(font);
    const int height = metrics.height();
    const int width = std::max(height, metrics.horizontalAdvance(text) + height / 2);
    // On the icon's top-right corner, inside the button.
    const int left = std::min(icon.left() + iconSize().width() + 2, rect().right() - width);
    const QRectF pill(left - width / 2.0 + 4, 1, width, height);
    const ThemeTokens& tokens = ThemeEngine::shared().currentTokens();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(tokens.accent);
    painter.drawRoundedRect(pill, height / 2.0, height / 2.0);
    painter.setPen(tokens.accentText);
    painter.setFont(font);
    painter.drawText(pill, Qt::AlignCenter, text);
}

} // namespace orvel
