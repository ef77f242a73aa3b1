#include "notices/ToastManager.h"

#include <QPointer>
#include <QTimer>

#include <algorithm>

namespace orvel {

ToastManager::ToastManager(QObject* parent) : QObject(parent) {}

void ToastManager::show(const QString& message, ToastType type) {
    show(message, type,
         type == ToastType::error     ? errorDuration
         : type == ToastType::warning ? warningDuration
                                      : noticeDuration);
}

void ToastManager::show(const QString& message, ToastType type, double duration) {
    const QDateTime now = QDateTime::currentDateTimeUtc();
    // Only the last toast is compared: an identical one further back does not merge.
    if (!toasts_.empty()) {
        ToastItem& last = toasts_.back();
        if (last.message == message && last.type == type &&
            last.createdAt.msecsTo(now) < static_cast<qint64>(dedupWindow * 1000)) {
            ++last.repeatCount;
            emit toastsChanged();
            return;
        }
    }
    ToastItem item{QUuid::createUuid(), type, message, 0, now};
    if (static_cast<int>(toasts_.size()) >= maxVisible)
        toasts_.erase(toasts_.begin());
    toasts_.push_back(item);
    emit toastsChanged();
    QTimer::singleShot(static_cast<int>(duration * 1000), this, [this, id = item.id] { remove(id); });
}

// A toast pushed out earlier is gone already; then nothing changes.
void ToastManager::remove(const QUuid& id) {
    const auto removed = std::erase_if(toasts_, [&](const ToastItem& item) { return item.id == id; });
    if (removed > 0)
        emit toastsChanged();
}

} // namespace orvel
