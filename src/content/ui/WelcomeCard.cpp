#include "content/ui/WelcomeCard.h"

#include "settings/ThemeEngine.h"
#include "widgets/Icons.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>

namespace orvel {

namespace {

constexpr int padding = 14;
constexpr int glyphSize = 24;

} // namespace

WelcomeCard::WelcomeCard(const QString& iconName, QWidget* parent)
    : QAbstractButton(parent), iconName_(iconName) {
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(&ThemeEngine::shared(), &ThemeEngine::themeChanged, this, qOverload<>(&QWidget::update));
}

void WelcomeCard::setTexts(const QString& title, const QString& subtitle) {
    setText(title);
    subtitle_ = subtitle;
    setAccessibleName(title);
    setAccessibleDescription(subtitle);
    updateGeometry();
    update();
}

QSize WelcomeCard::sizeHint() const {
    QFont titleFont = font();
    titleFont.setBold(true);
    const int textHeight = QFontMetrics(titleFont).height() + fontMetrics().height() + 2;
    return {380, std::max(textHeight, glyphSize) + padding * 2};
}

void WelcomeCard::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void WelcomeCard::paintEvent(QPaintEvent*) {
    const ThemeTokens& tokens = ThemeEngine::shared().currentTokens();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool hovered = underMouse();
    const bool emphasised = hovered || hasFocus() || isDown();
    QPainterPath outline;
    outline.addRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 8, 8);
    painter.fillPath(outline, isDown() ? tokens.raised.darker(105) : hovered ? tokens.raised : tokens.panel);
    painter.setPen(QPen(emphasised ? tokens.accent : tokens.stroke, hasFocus() ? 2 : 1));
    painter.drawPath(outline);

    const QRect iconRect(padding, (height() - glyphSize) / 2, glyphSize, glyphSize);
    themedIcon(iconName_).paint(&painter, iconRect);

    QFont titleFont = font();
    titleFont.setBold(true);
    const QFontMetrics titleMetrics(titleFont);
    const int left = iconRect.right() + padding;
    const int width = this->width() - left - padding;
    const int top = (height() - titleMetrics.height() - fontMetrics().height() - 2) / 2;
    painter.setFont(titleFont);
    painter.setPen(tokens.fg);
    painter.drawText(QRect(left, top, width, titleMetrics.height()), Qt::AlignLeft | Qt::AlignVCenter,
                     titleMetrics.elidedText(text(), Qt::ElideRight, width));
    painter.setFont(font());
    painter.setPen(tokens.fg2);
    painter.drawText(QRect(left, top + titleMetrics.height() + 2, width, fontMetrics().height()),
                     Qt::AlignLeft | Qt::AlignVCenter,
                     fontMetrics().elidedText(subtitle_, Qt::ElideRight, width));
}

} // namespace orvel
