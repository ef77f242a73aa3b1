#include "workspace/ui/ToastBadge.h"

#include "settings/ThemeEngine.h"
#include "widgets/Icons.h"

#include <QPainter>

namespace orvel {

namespace {

constexpr int padding = 12;
constexpr int iconSize = 16;
constexpr int gap = 8;
constexpr qreal radius = 8;
constexpr qreal tint = 0.18; // share of the type's colour in the badge's background

QColor mix(const QColor& base, const QColor& over, qreal share) {
    return QColor::fromRgbF(base.redF() + (over.redF() - base.redF()) * share,
                            base.greenF() + (over.greenF() - base.greenF()) * share,
                            base.blueF() + (over.blueF() - base.blueF()) * share);
}

const char* iconName(ToastType type) {
    switch (type) {
    case ToastType::warning:
        return "dialog-warning";
    case ToastType::error:
        return "dialog-error";
    case ToastType::notice:
        break;
    }
    return "dialog-information";
}

} // namespace

QFont ToastBadge::repeatFont() const {
    QFont bold = font();
    bold.setBold(true);
    return bold;
}

ToastBadge::ToastBadge(ToastItem item, QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("toast-badge"));
    setItem(std::move(item));
}

void ToastBadge::setItem(ToastItem item) {
    item_ = std::move(item);
    setAccessibleName(item_.message);
    update();
}

void ToastBadge::setOpacity(qreal opacity) {
    opacity_ = opacity;
    update();
}

QString ToastBadge::repeatText() const {
    return item_.repeatCount > 0 ? QStringLiteral("×%1").arg(item_.repeatCount + 1) : QString();
}

QRect ToastBadge::messageRect(const QRect& badge) const {
    int right = badge.right() - padding;
    if (const QString repeat = repeatText(); !repeat.isEmpty())
        right -= QFontMetrics(repeatFont()).horizontalAdvance(repeat) + gap;
    const int left = badge.left() + padding + iconSize + gap;
    return QRect(QPoint(left, badge.top() + padding), QPoint(right, badge.bottom() - padding));
}

int ToastBadge::heightForWidth(int width) const {
    const QRect text = messageRect(QRect(0, 0, width, 10000));
    const int textHeight = fontMetrics().boundingRect(text, Qt::TextWordWrap, item_.message).height();
    return std::max(textHeight, iconSize) + 2 * padding;
}

QColor ToastBadge::typeColour() const {
    const ToastColors& colours = ThemeEngine::shared().currentTheme().colors.toast;
    switch (item_.type) {
    case ToastType::warning:
        return colours.warning.color();
    case ToastType::error:
        return colours.error.color();
    case ToastType::notice:
        break;
    }
    return colours.notice.color();
}

void ToastBadge::paintEvent(QPaintEvent*) {
    const ThemeTokens& tokens = ThemeEngine::shared().currentTokens();
    const QColor colour = typeColour();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(opacity_);

    QColor border = colour;
    border.setAlphaF(0.6);
    painter.setPen(QPen(border, 1));
    painter.setBrush(mix(tokens.raised, colour, tint));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);

    const QRect text = messageRect(rect());
    const int iconTop = text.top() + (fontMetrics().height() - iconSize) / 2;
    painter.drawPixmap(QRect(padding, iconTop, iconSize, iconSize),
                       tintedPixmap(themedIcon(QString::fromLatin1(iconName(item_.type))), iconSize, colour,
                                    devicePixelRatioF()));
    painter.setPen(tokens.fg);
    painter.drawText(text, Qt::TextWordWrap | Qt::AlignLeft | Qt::AlignTop, item_.message);

    if (const QString repeat = repeatText(); !repeat.isEmpty()) {
        painter.setFont(repeatFont());
        painter.setPen(tokens.fg2);
        painter.drawText(QRect(text.right() + gap, text.top(), width() - text.right() - gap - padding,
                               fontMetrics().height()),
                         Qt::AlignRight | Qt::AlignTop, repeat);
    }
}

} // namespace orvel
