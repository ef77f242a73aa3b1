#include "content/ui/RecentRepositoryDelegate.h"

#include "content/RecentRepositoriesModel.h"
#include "settings/ThemeEngine.h"
#include "widgets/Icons.h"

#include <QPainter>

namespace orvel {

namespace {

constexpr int padding = 8;
constexpr int iconSize = 16;

} // namespace

void RecentRepositoryDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                     const QModelIndex& index) const {
    paintBackground(painter, option, index);

    const ThemeTokens& tokens = ThemeEngine::shared().currentTokens();
    const bool selected = option.state & QStyle::State_Selected;
    const QColor primary = selected ? option.palette.color(QPalette::HighlightedText) : tokens.fg;
    const QColor secondary = selected ? option.palette.color(QPalette::HighlightedText) : tokens.fg2;

    painter->save();
    const QRect area = option.rect.adjusted(padding, padding / 2, -padding, -padding / 2);
    const QRect iconRect(area.left(), area.top() + (area.height() - iconSize) / 2, iconSize, iconSize);
    themedIcon(QStringLiteral("folder")).paint(painter, iconRect);

    const QRect textRect = area.adjusted(iconSize + padding, 0, 0, 0);
    QFont nameFont = option.font;
    nameFont.setBold(true);
    const QFontMetrics nameMetrics(nameFont);
    const QFontMetrics pathMetrics(option.font);
    const int top = textRect.top() + (textRect.height() - nameMetrics.height() - pathMetrics.height()) / 2;
    painter->setFont(nameFont);
    painter->setPen(primary);
    painter->drawText(
        QRect(textRect.left(), top, textRect.width(), nameMetrics.height()), Qt::AlignLeft,
        nameMetrics.elidedText(index.data(Qt::DisplayRole).toString(), Qt::ElideRight, textRect.width()));
    painter->setFont(option.font);
    painter->setPen(secondary);
    painter->drawText(
        QRect(textRect.left(), top + nameMetrics.height(), textRect.width(), pathMetrics.height()),
        Qt::AlignLeft,
        pathMetrics.elidedText(index.data(RecentRepositoriesModel::PathRole).toString(), Qt::ElideMiddle,
                               textRect.width()));
    painter->restore();
}

QSize RecentRepositoryDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
    QFont nameFont = option.font;
    nameFont.setBold(true);
    return {200, QFontMetrics(nameFont).height() + QFontMetrics(option.font).height() + padding * 2};
}

} // namespace orvel
