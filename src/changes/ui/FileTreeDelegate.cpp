#include "changes/ui/FileTreeDelegate.h"

#include "changes/FileTreeModel.h"
#include "settings/ThemeEngine.h"
#include "widgets/Icons.h"

#include <QPainter>

namespace orvel {

namespace {

constexpr int padding = 6;

QColor statusColour(const QString& code) {
    const auto& colours = ThemeEngine::shared().currentTheme().colors.fileStatus;
    if (code == QLatin1String("A"))
        return colours.added.color();
    if (code == QLatin1String("D"))
        return colours.deleted.color();
    if (code == QLatin1String("R") || code == QLatin1String("C"))
        return colours.renamed.color();
    if (code == QLatin1String("?"))
        return colours.untracked.color();
    return colours.modified.color();
}

} // namespace

void FileTreeDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
    paintBackground(painter, option, index);

    const bool selected = option.state & QStyle::State_Selected;
    const ThemeTokens& tokens = ThemeEngine::shared().currentTokens();
    const QColor primary = selected ? option.palette.color(QPalette::HighlightedText) : tokens.fg;
    const QColor secondary = selected ? primary : tokens.fg2;
    QRect area = option.rect.adjusted(padding, 0, -padding, 0);
    painter->save();

    const QString code = index.data(FileTreeModel::StatusCodeRole).toString();
    if (!code.isEmpty()) {
        QFont bold = option.font;
        bold.setBold(true);
        painter->setFont(bold);
        const int width = QFontMetrics(bold).horizontalAdvance(QStringLiteral("M")) + padding;
        painter->setPen(selected ? primary : statusColour(code));
        painter->drawText(QRect(area.right() - width, area.top(), width, area.height()),
                          Qt::AlignRight | Qt::AlignVCenter, code);
        area.setRight(area.right() - width - padding);
    } else {
        const int iconSize = option.decorationSize.height();
        const QRect iconRect(area.left(), area.center().y() - iconSize / 2, iconSize, iconSize);
        themedIcon(QStringLiteral("folder")).paint(painter, iconRect);
        area.setLeft(iconRect.right() + padding);
    }

    painter->setFont(option.font);
    const QFontMetrics metrics(option.font);
    const QString name = metrics.elidedText(index.data().toString(), Qt::ElideMiddle, area.width());
    painter->setPen(primary);
    painter->drawText(area, Qt::AlignLeft | Qt::AlignVCenter, name);
    // A submodule or nested repository says so before its folder.
    const QString kind = index.data(FileTreeModel::KindRole).toString();
    const QString folder = index.data(FileTreeModel::DirectoryRole).toString();
    const QString directory =
        kind.isEmpty() || folder.isEmpty() ? kind + folder : kind + QStringLiteral("  ") + folder;
    if (!directory.isEmpty()) {
        QRect rest = area.adjusted(metrics.horizontalAdvance(name) + padding, 0, 0, 0);
        painter->setPen(secondary);
        painter->drawText(rest, Qt::AlignLeft | Qt::AlignVCenter,
                          metrics.elidedText(directory, Qt::ElideLeft, rest.width()));
    }
    painter->restore();
}

QSize FileTreeDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QSize size = PaintedRowDelegate::sizeHint(option, index);
    size.setHeight(std::max(size.height(), option.fontMetrics.height() + 8));
    return size;
}

} // namespace orvel
