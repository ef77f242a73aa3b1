#include "workspace/ui/ToastOverlay.h"

#include "settings/ThemeEngine.h"
#include "notices/ToastManager.h"
#include "workspace/ui/ToastBadge.h"

#include <QEvent>
#include <QPropertyAnimation>
#include <QRegion>

#include <algorithm>

namespace orvel {

namespace {

constexpr int margin = 16;
constexpr int spacing = 8;
constexpr int badgeWidth = 360;

// A new animation of a property replaces the one still running on it.
QPropertyAnimation* animate(QObject* target, const QByteArray& property, const QVariant& to) {
    for (auto* running : target->findChildren<QPropertyAnimation*>(Qt::FindDirectChildrenOnly)) {
        if (running->propertyName() == property)
            running->stop();
    }
    auto* animation = new QPropertyAnimation(target, property, target);
    animation->setDuration(ToastOverlay::animationMilliseconds);
    animation->setEasingCurve(QEasingCurve::InOutQuad);
    animation->setEndValue(to);
    animation->start(QAbstractAnimation::DeleteWhenStopped);
    return animation;
}

} // namespace

ToastOverlay::ToastOverlay(ToastManager& toasts, QWidget* window) : QWidget(window), toasts_(toasts) {
    setObjectName(QStringLiteral("toast-overlay"));
    setAttribute(Qt::WA_NoSystemBackground);
    setFocusPolicy(Qt::NoFocus);
    setGeometry(window->rect());
    window->installEventFilter(this);
    connect(&toasts_, &ToastManager::toastsChanged, this, &ToastOverlay::sync);
    connect(&ThemeEngine::shared(), &ThemeEngine::themeChanged, this, [this] {
        for (const Shown& shown : shown_)
            shown.badge->update();
    });
    sync();
}

// New toasts get a badge that fades in, changed ones (a repeat) update, and toasts the manager
// dropped fade out before their badge goes.
void ToastOverlay::sync() {
    const std::vector<ToastItem>& items = toasts_.toasts();
    for (Shown& shown : shown_) {
        const auto item =
            std::find_if(items.begin(), items.end(), [&](const ToastItem& i) { return i.id == shown.id; });
        if (item == items.end())
            fadeOut(shown);
        else
            shown.badge->setItem(*item);
    }
    std::vector<ToastBadge*> added;
    for (const ToastItem& item : items) {
        if (std::any_of(shown_.begin(), shown_.end(),
                        [&](const Shown& shown) { return shown.id == item.id; }))
            continue;
        auto* badge = new ToastBadge(item, this);
        badge->installEventFilter(this);
        shown_.push_back({item.id, badge});
        added.push_back(badge);
    }
    layoutBadges(true);
    setVisible(!shown_.empty());
    raise();
    for (ToastBadge* badge : added) {
        badge->show();
        animate(badge, "opacity", 1.0);
    }
}

void ToastOverlay::fadeOut(Shown& shown) {
    if (shown.leaving)
        return;
    shown.leaving = true;
    ToastBadge* badge = shown.badge;
    connect(animate(badge, "opacity", 0.0), &QAbstractAnimation::finished, this, [this, badge] {
        std::erase_if(shown_, [&](const Shown& s) { return s.badge == badge; });
        badge->deleteLater();
        layoutBadges(true);
        setVisible(!shown_.empty());
    });
}

// From the bottom up, newest lowest. A badge that is already placed slides to its new place.
void ToastOverlay::layoutBadges(bool animated) {
    const int width = std::min(badgeWidth, this->width() - 2 * margin);
    int bottom = height() - margin;
    for (auto shown = shown_.rbegin(); shown != shown_.rend(); ++shown) {
        ToastBadge* badge = shown->badge;
        const int height = badge->heightForWidth(width);
        const QPoint place(this->width() - margin - width, bottom - height);
        badge->resize(width, height);
        if (animated && badge->isVisible() && badge->pos() != place)
            animate(badge, "pos", place);
        else if (!animated || !badge->isVisible())
            badge->move(place);
        bottom -= height + spacing;
    }
    updateMask();
}

// Only the badges take the mouse.
void ToastOverlay::updateMask() {
    QRegion region;
    for (const Shown& shown : shown_)
        region += shown.badge->geometry();
    if (region.isEmpty())
        clearMask();
    else
        setMask(region);
}

bool ToastOverlay::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parent() && event->type() == QEvent::Resize) {
        setGeometry(parentWidget()->rect());
        layoutBadges(false);
    } else if (watched != parent() && (event->type() == QEvent::Move || event->type() == QEvent::Resize)) {
        updateMask();
    }
    return QWidget::eventFilter(watched, event);
}

void ToastOverlay::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        layoutBadges(false);
    QWidget::changeEvent(event);
}

} // namespace orvel
