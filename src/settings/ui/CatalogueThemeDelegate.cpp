#include "settings/ui/CatalogueThemeDelegate.h"

#include "settings/ThemeEngine.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace orvel {

namespace {

constexpr int padding = 8;
constexpr int sampleWidth = 104;
constexpr int dotSize = 8;

// A palette in miniature: its window colour framed by its soft stroke, "Aa" in its text colour, and dots
// of the accent, the change colours and the info colour.
void paintSample(QPainter* painter, const QRectF& area, const ThemeTokens& tokens) {
    painter->save();
    QPainterPath frame;
    frame.addRoundedRect(area.adjusted(0.5, 0.5, -0.5, -0.5), 5, 5);
    painter->fillPath(frame, tokens.window);
    painter->setPen(QPen(tokens.strokeSoft, 1));
    painter->drawPath(frame);

    QFont font = painter->font();
    font.setBold(true);
    painter->setFont(font);
    painter->setPen(tokens.fg);
    const QRectF textRect(area.left() + 6, area.top(), 22, area.height());
    painter->drawText(textRect, Qt::AlignVCenter | Qt::AlignLeft, QStringLiteral("Aa"));

    painter->setPen(Qt::NoPen);
    qreal x = textRect.right() + 4;
    const qreal y = area.center().y() - dotSize / 2.0;
    for (const QColor& colour : {tokens.accent, tokens.add, tokens.del, tokens.mod, tokens.info}) {
        painter->setBrush(colour);
        painter->drawEllipse(QRectF(x, y, dotSize, dotSize));
        x += dotSize + 4;
    }
    painter->restore();
}

} // namespace

void CatalogueThemeDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                   const QModelIndex& index) const {
    paintBackground(painter, option, index);

    const bool selected = option.state & QStyle::State_Selected;
    const QPalette::ColorGroup group =
        option.state & QStyle::State_Active ? QPalette::Active : QPalette::Inactive;
    const QColor primary = option.palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text);
    const QColor secondary = selected ? primary : option.palette.color(group, QPalette::PlaceholderText);

    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const QRect area = option.rect.adjusted(padding, padding / 2, -padding, -padding / 2);
    const OrvelTheme& theme = catalogueTheme(index.data(IdRole).toString());
    const int samplesLeft = area.right() - 2 * sampleWidth - padding;
    const qreal sampleHeight = std::min(area.height(), 26);
    const qreal sampleTop = area.top() + (area.height() - sampleHeight) / 2;
    paintSample(painter, QRectF(samplesLeft, sampleTop, sampleWidth, sampleHeight), theme.palette.dark);
    paintSample(painter, QRectF(samplesLeft + sampleWidth + padding, sampleTop, sampleWidth, sampleHeight),
                theme.palette.light);
    painter->restore();

    painter->save();
    const int textWidth = std::max(samplesLeft - area.left() - padding, 0);
    QFont nameFont = option.font;
    nameFont.setBold(true);
    const QFontMetrics nameMetrics(nameFont);
    const QFontMetrics tagMetrics(option.font);
    const int top = area.top() + (area.height() - nameMetrics.height() - tagMetrics.height()) / 2;
    painter->setFont(nameFont);
    painter->setPen(primary);
    painter->drawText(
        QRect(area.left(), top, textWidth, nameMetrics.height()), Qt::AlignLeft,
        nameMetrics.elidedText(index.data(Qt::DisplayRole).toString(), Qt::ElideRight, textWidth));
    painter->setFont(option.font);
    painter->setPen(secondary);
    painter->drawText(QRect(area.left(), top + nameMetrics.height(), textWidth, tagMetrics.height()),
                      Qt::AlignLeft,
                      tagMetrics.elidedText(index.data(TagRole).toString(), Qt::ElideRight, textWidth));
    painter->restore();
}

QSize CatalogueThemeDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
    QFont nameFont = option.font;
    nameFont.setBold(true);
    return {2 * sampleWidth + 200,
            QFontMetrics(nameFont).height() + QFontMetrics(option.font).height() + padding * 2};
}

} // namespace orvel
