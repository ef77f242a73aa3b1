#include "widgets/OEmptyState.h"

#include "widgets/Icons.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace orvel {

namespace {
constexpr int iconSize = 48;
constexpr int messageWidth = 360;
} // namespace

OEmptyState::OEmptyState(const QString& iconName, const QString& title, const QString& message,
                         QWidget* parent)
    : QWidget(parent), iconName_(iconName), icon_(new QLabel(this)), title_(new QLabel(title, this)),
      message_(new QLabel(message, this)) {
    icon_->setAlignment(Qt::AlignCenter);
    title_->setTextFormat(Qt::PlainText);
    message_->setTextFormat(Qt::PlainText);
    title_->setAlignment(Qt::AlignCenter);
    title_->setWordWrap(true);
    QFont titleFont = title_->font();
    titleFont.setBold(true);
    titleFont.setPointSizeF(titleFont.pointSizeF() * 1.25);
    title_->setFont(titleFont);
    message_->setAlignment(Qt::AlignCenter);
    message_->setWordWrap(true);
    message_->setForegroundRole(QPalette::PlaceholderText);
    message_->setVisible(!message.isEmpty());

    // The column takes the whole width up to messageWidth and is centred; its labels fill it, so
    // that text wraps only where the space ends and gets the height it needs.
    auto* column = new QWidget(this);
    column->setMaximumWidth(messageWidth);
    auto* columnLayout = new QVBoxLayout(column);
    columnLayout->addWidget(icon_);
    columnLayout->addSpacing(8);
    columnLayout->addWidget(title_);
    columnLayout->addWidget(message_);
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    row->addWidget(column, 100);
    row->addStretch(1);
    auto* layout = new QVBoxLayout(this);
    layout->addStretch(1);
    layout->addLayout(row);
    layout->addStretch(1);
    setAccessibleName(title);
    updateIcon();
}

void OEmptyState::setIconName(const QString& iconName) {
    iconName_ = iconName;
    updateIcon();
}

void OEmptyState::setTitle(const QString& title) {
    title_->setText(title);
    setAccessibleName(title);
}

void OEmptyState::setMessage(const QString& message) {
    message_->setText(message);
    message_->setVisible(!message.isEmpty());
}

void OEmptyState::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange)
        updateIcon();
    QWidget::changeEvent(event);
}

void OEmptyState::updateIcon() {
    icon_->setPixmap(themedIcon(iconName_).pixmap(QSize(iconSize, iconSize), devicePixelRatioF()));
    icon_->setVisible(!iconName_.isEmpty());
}

} // namespace orvel
