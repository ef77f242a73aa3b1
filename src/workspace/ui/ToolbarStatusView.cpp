#include "workspace/ui/ToolbarStatusView.h"

#include "settings/LocalizationManager.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>

namespace orvel {

ToolbarStatusView::ToolbarStatusView(QWidget* parent)
    : QWidget(parent), busy_(new QProgressBar(this)), text_(new QLabel(this)) {
    setObjectName(QStringLiteral("toolbar.status"));
    text_->setObjectName(QStringLiteral("toolbar.status.text"));
    busy_->setRange(0, 0);
    busy_->setTextVisible(false);
    busy_->setFixedSize(48, 8);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 0, 8, 0);
    layout->addWidget(busy_);
    layout->addWidget(text_);
    show();
}

void ToolbarStatusView::setState(const std::optional<QString>& activity, int ahead, int behind) {
    activity_ = activity;
    ahead_ = ahead;
    behind_ = behind;
    show();
}

void ToolbarStatusView::show() {
    busy_->setVisible(activity_.has_value());
    if (activity_) {
        text_->setText(*activity_);
        text_->setAccessibleName(*activity_);
        return;
    }
    text_->setText(QStringLiteral("↑ %1   ↓ %2").arg(ahead_).arg(behind_));
    text_->setAccessibleName(
        localized("%1 ahead, %2 behind", QString::number(ahead_), QString::number(behind_)));
}

void ToolbarStatusView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LanguageChange)
        show();
    QWidget::changeEvent(event);
}

} // namespace orvel
