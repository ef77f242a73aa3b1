#include "sidebar/ui/SidebarRowDelegate.h"

#include "settings/LocalizationManager.h"
#include "settings/ThemeEngine.h"
#include "sidebar/SidebarTreeModel.h"
#include "widgets/Icons.h"
#include "widgets/TextContrast.h"

#include <QPainter>

namespace orvel {

namespace {

constexpr int padding = 6;
constexpr int badgeRadius = 3;

using Kind = SidebarTreeModel::Kind;

QString iconName(Kind kind) {
    switch (kind) {
    case Kind::remote:
        return QStringLiteral("vcs-remote");
    case Kind::folder:
        return QStringLiteral("folder");
    case Kind::branch:
        return QStringLiteral("vcs-branch");
    case Kind::tag:
        return QStringLiteral("vcs-tag");
    case Kind::stash:
        return QStringLiteral("vcs-stash");
    case Kind::section:
    case Kind::placeholder:
        break;
    }
    return {};
}

// Paints `text` right-aligned at the end of `area` and takes its width (and a gap) off the area.
void paintTrailing(QPainter* painter, QRect& area, const QString& text, const QFont& font,
                   const QColor& colour) {
    const QFontMetrics metrics(font);
    const int width = metrics.horizontalAdvance(text);
    painter->setFont(font);
    painter->setPen(colour);
    painter->drawText(QRect(area.right() - width, area.top(), width, area.height()),
                      Qt::AlignRight | Qt::AlignVCenter, text);
    area.setRight(area.right() - width - padding);
}

void paintBadge(QPainter* painter, QRect& area, const QString& text, const QFont& font,
                const SidebarRowColours& colours) {
    const QFontMetrics metrics(font);
    const int width = metrics.horizontalAdvance(text) + 2 * padding;
    const int height = metrics.height() + 2;
    const QRect badge(area.right() - width, area.center().y() - height / 2, width, height);
    painter->setPen(Qt::NoPen);
    painter->setBrush(colours.badgeFill);
    painter->drawRoundedRect(badge, badgeRadius, badgeRadius);
    painter->setFont(font);
    painter->setPen(colours.badgeText);
    painter->drawText(badge, Qt::AlignCenter, text);
    area.setRight(badge.left() - padding);
}

} // namespace

SidebarRowColours SidebarRowColours::of(const ThemeTokens& tokens, const QPalette& palette, bool selected) {
    SidebarRowColours colours;
    colours.background = palette.color(selected ? QPalette::Highlight : QPalette::Base);
    colours.text =
        readableOn(colours.background, selected ? palette.color(QPalette::HighlightedText) : tokens.fg);
    colours.secondary = selected ? colours.text : readableOn(colours.background, tokens.fg2);
    colours.quiet = readableOn(colours.background, tokens.fg3);
    colours.badgeFill = tokens.accent;
    colours.badgeText = readableOn(tokens.accent, tokens.accentText);
    return colours;
}

void SidebarRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const {
    const auto kind = static_cast<Kind>(index.data(SidebarTreeModel::KindRole).toInt());
    paintBackground(painter, option, index);

    const Theme& theme = ThemeEngine::shared().currentTheme();
    const bool selected = option.state & QStyle::State_Selected;
    const SidebarRowColours colours =
        SidebarRowColours::of(ThemeEngine::shared().currentTokens(), option.palette, selected);
    const QColor& primary = colours.text;
    const QColor& secondary = colours.secondary;
    QRect area = option.rect.adjusted(padding / 2, 0, -padding, 0);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);

    QFont font = option.font;
    QFont small = option.font;
    small.setPointSizeF(option.font.pointSizeF() * 0.85);
    QColor textColour = primary;

    if (kind == Kind::section) {
        small.setBold(true);
        small.setLetterSpacing(QFont::PercentageSpacing, 108);
        painter->setFont(small);
        painter->setPen(secondary);
        painter->drawText(area, Qt::AlignLeft | Qt::AlignVCenter, index.data().toString());
        painter->restore();
        return;
    }
    if (kind == Kind::placeholder) {
        painter->setFont(small);
        painter->setPen(colours.quiet);
        painter->drawText(
            area, Qt::AlignLeft | Qt::AlignVCenter,
            option.fontMetrics.elidedText(index.data().toString(), Qt::ElideRight, area.width()));
        painter->restore();
        return;
    }

    const int iconSize = option.decorationSize.height();
    const QRect iconRect(area.left(), area.center().y() - iconSize / 2, iconSize, iconSize);
    const QIcon icon = themedIcon(iconName(kind));
    const bool isCurrent = index.data(SidebarTreeModel::IsCurrentRole).toBool();
    const bool isMain = index.data(SidebarTreeModel::IsMainRole).toBool();
    if (kind == Kind::branch && (isCurrent || isMain) && !selected) {
        const QColor tint = isCurrent ? theme.colors.sidebar.currentBranchIcon.color()
                                      : theme.colors.sidebar.mainBranchIcon.color();
        painter->drawPixmap(iconRect,
                            tintedPixmap(icon, iconSize, tint, painter->device()->devicePixelRatioF()));
    } else {
        icon.paint(painter, iconRect);
    }
    area.setLeft(iconRect.right() + padding);

    if (kind == Kind::branch) {
        if (isCurrent) {
            QFont badgeFont = small;
            badgeFont.setBold(true);
            paintBadge(painter, area, localized("CURRENT"), badgeFont, colours);
            font.setBold(true);
        }
        // A branch already merged into the default branch is shown quieter: it can go.
        if (index.data(SidebarTreeModel::IsMergedRole).toBool() && !isCurrent && !isMain)
            textColour = secondary;
    }
    if (kind == Kind::remote)
        font.setBold(true);
    if (kind == Kind::tag && index.data(SidebarTreeModel::IsOnRemoteRole).toBool())
        paintTrailing(painter, area, QStringLiteral("☁"), small, secondary);
    if (const QString detail = index.data(SidebarTreeModel::DetailRole).toString(); !detail.isEmpty())
        paintTrailing(painter, area, detail, small, secondary);

    painter->setFont(font);
    painter->setPen(textColour);
    painter->drawText(area, Qt::AlignLeft | Qt::AlignVCenter,
                      QFontMetrics(font).elidedText(index.data().toString(), Qt::ElideMiddle, area.width()));
    painter->restore();
}

QSize SidebarRowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QSize size = PaintedRowDelegate::sizeHint(option, index);
    size.setHeight(std::max(size.height(), option.fontMetrics.height() + 8));
    return size;
}

} // namespace orvel
