// Paints one row of the sidebar's tree: a section title in small capitals, a remote or folder with
// its icon, a branch with its icon (coloured for the current and the default branch), its name,
// the "CURRENT" badge and its distance from its upstream, a tag (with a mark once pushed) or a
// stash with its index. Colours come from the theme at every paint.
#pragma once

#include "settings/ThemeTokens.h"
#include "widgets/PaintedRowDelegate.h"

#include <QColor>
#include <QPalette>

namespace orvel {

// The colours of a row's texts, from the theme's tokens, each moved where needed to be read on the
// row: the list's base colour, or the selection's.
struct SidebarRowColours {
    QColor background;
    QColor text;
    QColor secondary; // section titles, distances, merged branches
    QColor quiet;     // what stands in for an empty section
    QColor badgeFill;
    QColor badgeText;

    static SidebarRowColours of(const ThemeTokens& tokens, const QPalette& palette, bool selected);
};

class SidebarRowDelegate final : public PaintedRowDelegate {
    Q_OBJECT

  public:
    using PaintedRowDelegate::PaintedRowDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace orvel
