#include "merge/ui/RebasePlanDelegate.h"

#include "core/records/RebasePlan.h"
#include "merge/ui/RebasePlanItemModel.h"
#include "settings/LocalizationManager.h"
#include "settings/ThemeEngine.h"
#include "widgets/Icons.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace orvel {

namespace {

constexpr int padding = 6;
constexpr int iconSize = 16; // the reword pencil and the conflict mark

QColor actionColour(RebaseAction action) {
    const ThemeTokens& tokens = ThemeEngine::shared().currentTokens();
    switch (action) {
    case RebaseAction::reword:
        return tokens.info;
    case RebaseAction::edit:
        return tokens.mod;
    case RebaseAction::squash:
    case RebaseAction::fixup:
        return tokens.accent;
    case RebaseAction::drop:
        return tokens.del;
    case RebaseAction::exec:
        return tokens.add;
    case RebaseAction::pick:
        break;
    }
    return tokens.fg2;
}

bool isReword(const QModelIndex& index) {
    return index.column() == RebasePlanItemModel::SubjectColumn &&
           static_cast<RebaseAction>(index.data(RebasePlanItemModel::ActionRole).toInt()) ==
               RebaseAction::reword;
}

// The action in bold, the hash in the monospaced font, the subject in the view's own.
QFont cellFont(const QStyleOptionViewItem& option, int column) {
    QFont font = option.font;
    if (column == RebasePlanItemModel::ActionColumn) {
        font.setBold(true);
    } else if (column == RebasePlanItemModel::CommitColumn) {
        font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
        font.setPointSizeF(option.font.pointSizeF());
    }
    return font;
}

// The place of a cell's icon, at its right end.
QRect iconRect(const QRect& cell) {
    return {cell.right() - padding - iconSize, cell.center().y() - iconSize / 2, iconSize, iconSize};
}

// A step that will stop on a conflict carries the model's mark in its commit cell.
QIcon conflictMark(const QModelIndex& index) {
    return index.column() == RebasePlanItemModel::CommitColumn ? index.data(Qt::DecorationRole).value<QIcon>()
                                                               : QIcon();
}

} // namespace

void RebasePlanDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const {
    paintBackground(painter, option, index);

    const bool selected = option.state & QStyle::State_Selected;
    const ThemeTokens& tokens = ThemeEngine::shared().currentTokens();
    const QColor highlighted = option.palette.color(QPalette::HighlightedText);
    const auto action = static_cast<RebaseAction>(index.data(RebasePlanItemModel::ActionRole).toInt());
    QRect area = option.rect.adjusted(padding, 0, -padding, 0);
    QString text = index.data(Qt::DisplayRole).toString();
    QFont font = cellFont(option, index.column());
    QColor colour = selected ? highlighted : tokens.fg;
    painter->save();
    switch (index.column()) {
    case RebasePlanItemModel::ActionColumn:
        colour = selected ? highlighted : actionColour(action);
        break;
    case RebasePlanItemModel::CommitColumn:
        colour = selected ? highlighted : tokens.fg2;
        if (const QIcon mark = conflictMark(index); !mark.isNull()) {
            const QRect place = iconRect(option.rect);
            mark.paint(painter, place);
            area.setRight(place.left() - padding);
        }
        break;
    default:
        if (action == RebaseAction::exec && text.isEmpty()) {
            text = localized("Shell command");
            colour = selected ? highlighted : tokens.fg3;
        }
        if (action == RebaseAction::drop && !selected) {
            font.setStrikeOut(true);
            colour = tokens.fg3;
        }
        if (isReword(index)) {
            const QRect pencil = iconRect(option.rect);
            painter->drawPixmap(pencil, tintedPixmap(themedIcon(QStringLiteral("document-edit")), iconSize,
                                                     selected ? highlighted : tokens.fg2,
                                                     painter->device()->devicePixelRatioF()));
            area.setRight(pencil.left() - padding);
        }
        break;
    }
    painter->setFont(font);
    painter->setPen(colour);
    painter->drawText(area, Qt::AlignLeft | Qt::AlignVCenter,
                      QFontMetrics(font).elidedText(text, Qt::ElideRight, area.width()));
    painter->restore();
}

QSize RebasePlanDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const QFontMetrics metrics(cellFont(option, index.column()));
    int width = metrics.horizontalAdvance(index.data(Qt::DisplayRole).toString());
    // Every action fits, so the column keeps its width when another is chosen.
    if (index.column() == RebasePlanItemModel::ActionColumn)
        for (RebaseAction action : allRebaseActions)
            width = std::max(width, metrics.horizontalAdvance(QString::fromLatin1(rawValue(action))));
    if (index.column() == RebasePlanItemModel::SubjectColumn || !conflictMark(index).isNull())
        width += iconSize + padding;
    return {width + 2 * padding, metrics.height() + 6};
}

QWidget* RebasePlanDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                          const QModelIndex& index) const {
    if (index.column() == RebasePlanItemModel::ActionColumn) {
        auto* actions = new QComboBox(parent);
        actions->setAccessibleName(localized("Action"));
        for (RebaseAction action : allRebaseActions)
            actions->addItem(QString::fromLatin1(rawValue(action)));
        return actions;
    }
    if (index.column() == RebasePlanItemModel::SubjectColumn) {
        auto* command = new QLineEdit(parent);
        command->setObjectName(QStringLiteral("rebase-sheet.exec-command"));
        command->setPlaceholderText(localized("Shell command"));
        command->setAccessibleName(localized("Command"));
        return command;
    }
    return PaintedRowDelegate::createEditor(parent, option, index);
}

void RebasePlanDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    if (auto* actions = qobject_cast<QComboBox*>(editor)) {
        actions->setCurrentText(index.data(Qt::EditRole).toString());
    } else if (auto* command = qobject_cast<QLineEdit*>(editor)) {
        command->setText(index.data(Qt::EditRole).toString());
    }
}

void RebasePlanDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                      const QModelIndex& index) const {
    if (auto* actions = qobject_cast<QComboBox*>(editor))
        model->setData(index, actions->currentText(), Qt::EditRole);
    else if (auto* command = qobject_cast<QLineEdit*>(editor))
        model->setData(index, command->text(), Qt::EditRole);
}

bool RebasePlanDelegate::editorEvent(QEvent* event, QAbstractItemModel* model,
                                     const QStyleOptionViewItem& option, const QModelIndex& index) {
    if (event->type() == QEvent::MouseButtonRelease && isReword(index) &&
        iconRect(option.rect).contains(static_cast<QMouseEvent*>(event)->position().toPoint())) {
        emit rewordRequested(index.row());
        return true;
    }
    return PaintedRowDelegate::editorEvent(event, model, option, index);
}

} // namespace orvel
