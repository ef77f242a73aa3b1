#include "widgets/OInlineBanner.h"

#include "settings/ThemeEngine.h"
#include "widgets/Icons.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>

namespace orvel {

namespace {

constexpr int iconSize = 16;
constexpr qreal fillOpacity = 0.16;
constexpr qreal borderOpacity = 0.55;

const char* iconName(OInlineBanner::Kind kind) {
    switch (kind) {
    case OInlineBanner::Kind::warning:
        return "dialog-warning";
    case OInlineBanner::Kind::error:
        return "dialog-error";
    case OInlineBanner::Kind::info:
    case OInlineBanner::Kind::success:
        break;
    }
    return "dialog-information";
}

} // namespace

OInlineBanner::OInlineBanner(QWidget* parent)
    : QWidget(parent), icon_(new QLabel(this)), message_(new QLabel(this)), buttons_(new QHBoxLayout) {
    message_->setTextFormat(Qt::PlainText); // error texts carry git's and the user's words, never markup
    message_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(10, 6, 6, 6);
    layout->addWidget(icon_);
    layout->addWidget(message_, 1);
    layout->addLayout(buttons_);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    connect(&ThemeEngine::shared(), &ThemeEngine::themeChanged, this, [this] {
        updateIcon();
        update();
    });
    updateIcon();
}

QString OInlineBanner::message() const {
    return message_->text();
}

void OInlineBanner::setMessage(Kind kind, const QString& message) {
    kind_ = kind;
    message_->setText(message);
    setAccessibleName(message);
    updateIcon();
    update();
}

QPushButton* OInlineBanner::addButton(const QString& text, std::function<void()> triggered) {
    auto* button = new QPushButton(text, this);
    connect(button, &QPushButton::clicked, this, std::move(triggered));
    buttons_->addWidget(button);
    return button;
}

void OInlineBanner::removeButtons() {
    while (QLayoutItem* item = buttons_->takeAt(0)) {
        delete item->widget();
        delete item;
    }
}

QColor OInlineBanner::kindColour() const {
    const StatusColors& status = ThemeEngine::shared().currentTheme().colors.status;
    switch (kind_) {
    case Kind::success:
        return status.success.color();
    case Kind::warning:
        return status.warning.color();
    case Kind::error:
        return status.error.color();
    case Kind::info:
        break;
    }
    return status.info.color();
}

void OInlineBanner::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor fill = kindColour();
    fill.setAlphaF(fill.alphaF() * fillOpacity);
    QColor border = kindColour();
    border.setAlphaF(border.alphaF() * borderOpacity);
    painter.setPen(border);
    painter.setBrush(fill);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);
}

void OInlineBanner::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange)
        update();
    QWidget::changeEvent(event);
}

void OInlineBanner::updateIcon() {
    icon_->setPixmap(tintedPixmap(themedIcon(QString::fromLatin1(iconName(kind_))), iconSize, kindColour(),
                                  devicePixelRatioF()));
}

} // namespace orvel
