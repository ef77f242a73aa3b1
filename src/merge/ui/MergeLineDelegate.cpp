#include "merge/ui/MergeLineDelegate.h"

#include "merge/MergeLineRows.h"
#include "merge/ui/MergeLineModel.h"
#include "settings/ThemeEngine.h"

#include <QFontDatabase>
#include <QMouseEvent>
#include <QPainter>

namespace orvel {

namespace {

constexpr int padding = 6;
constexpr int gutterDigits = 5;

QFont monoFont(const QFont& base) {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSizeF(base.pointSizeF());
    return font;
}

QColor tintColour(MergeSide side, bool focused) {
    const ThemeTokens& tokens = ThemeEngine::shared().currentTokens();
    QColor colour = side == MergeSide::ours ? tokens.info : tokens.mod;
    colour.setAlpha(focused ? 64 : 28);
    return colour;
}

} // namespace

void MergeLineDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const {
    paintBackground(painter, option, index);

    painter->save();
    const auto side = static_cast<MergeSide>(index.data(MergeLineModel::TintRole).toInt());
    const bool selected = option.state & QStyle::State_Selected;
    if (side != MergeSide::none && !selected)
        painter->fillRect(option.rect, tintColour(side, index.data(MergeLineModel::FocusedRole).toBool()));

    const ThemeTokens& tokens = ThemeEngine::shared().currentTokens();
    const QFont mono = monoFont(option.font);
    const QFontMetrics metrics(mono);
    painter->setFont(mono);
    QRect area = option.rect.adjusted(padding, 0, -padding, 0);
    const int gutter = metrics.horizontalAdvance(QLatin1Char('9')) * gutterDigits;
    painter->setPen(selected ? option.palette.color(QPalette::HighlightedText) : tokens.fg3);
    painter->drawText(QRect(area.left(), area.top(), gutter, area.height()),
                      Qt::AlignRight | Qt::AlignVCenter,
                      QString::number(index.data(MergeLineModel::LineNumberRole).toInt()));
    area.setLeft(area.left() + gutter + padding);

    const QVariant check = index.data(Qt::CheckStateRole);
    bool included = true;
    if (check.isValid()) {
        QStyle* style = styleOf(option);
        QStyleOptionButton box;
        const int size = style->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, option.widget);
        box.rect = QRect(area.left(), area.center().y() - size / 2, size, size);
        included = check.value<Qt::CheckState>() == Qt::Checked;
        box.state = QStyle::State_Enabled | (included ? QStyle::State_On : QStyle::State_Off);
        if (option.state & QStyle::State_HasFocus)
            box.state |= QStyle::State_HasFocus;
        style->drawPrimitive(QStyle::PE_IndicatorCheckBox, &box, painter, option.widget);
        area.setLeft(box.rect.right() + padding);
    }

    // The text is drawn plain; colouring by the row's language belongs to the highlighter.
    QColor text = included ? tokens.fg : tokens.fg3;
    if (selected)
        text = option.palette.color(QPalette::HighlightedText);
    painter->setPen(text);
    QString line = index.data(Qt::DisplayRole).toString();
    line.replace(QLatin1Char('\t'), QStringLiteral("    "));
    painter->drawText(area, Qt::AlignLeft | Qt::AlignVCenter,
                      metrics.elidedText(line, Qt::ElideRight, area.width()));
    painter->restore();
}

QSize MergeLineDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const QFontMetrics metrics(monoFont(option.font));
    const QString line = index.data(Qt::DisplayRole).toString();
    return {metrics.horizontalAdvance(line) +
                metrics.horizontalAdvance(QLatin1Char('9')) * (gutterDigits + 4),
            metrics.height() + 4};
}

bool MergeLineDelegate::editorEvent(QEvent* event, QAbstractItemModel* model,
                                    const QStyleOptionViewItem& option, const QModelIndex& index) {
    if (event->type() == QEvent::MouseButtonRelease && (index.flags() & Qt::ItemIsUserCheckable) &&
        static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        const bool on = index.data(Qt::CheckStateRole).value<Qt::CheckState>() == Qt::Checked;
        return model->setData(index, on ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
    }
    // The press and double click of a toggling click are taken too, so the view does not act on them.
    if ((event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick) &&
        (index.flags() & Qt::ItemIsUserCheckable))
        return event->type() == QEvent::MouseButtonDblClick;
    return PaintedRowDelegate::editorEvent(event, model, option, index);
}

} // namespace orvel
