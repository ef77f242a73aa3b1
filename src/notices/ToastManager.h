// The one way every part of the program tells the user the outcome of an action: short notices
// that stack (five at most) and expire by themselves. A toast raised again within a second merges
// into the last one and counts the repeat.
#pragma once

#include <QDateTime>
#include <QObject>
#include <QString>
#include <QUuid>

#include <vector>

namespace orvel {

enum class ToastType { notice, warning, error };

struct ToastItem {
    QUuid id;
    ToastType type = ToastType::notice;
    QString message;
    int repeatCount = 0;
    QDateTime createdAt;
};

class ToastManager final : public QObject {
    Q_OBJECT

  public:
    static constexpr int maxVisible = 5;
    static constexpr double dedupWindow = 1.0;
    // The conventional durations every caller passes, in seconds.
    static constexpr double noticeDuration = 3.0;
    static constexpr double warningDuration = 4.0;
    static constexpr double errorDuration = 5.0;

    explicit ToastManager(QObject* parent = nullptr);

    const std::vector<ToastItem>& toasts() const { return toasts_; }

    void show(const QString& message, ToastType type, double duration);
    // The same with the conventional duration of the type.
    void show(const QString& message, ToastType type);

  signals:
    void toastsChanged();

  private:
    void remove(const QUuid& id);

    std::vector<ToastItem> toasts_;
};

} // namespace orvel
