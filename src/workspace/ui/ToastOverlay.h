// The toasts of the window: a frameless child that covers its window and shows the manager's toasts
// stacked in its bottom-right corner, oldest on top. Badges fade in and out and slide into place;
// everywhere but on a badge the mouse reaches the widgets beneath.
#pragma once

#include <QUuid>
#include <QWidget>

#include <vector>

namespace orvel {

class ToastBadge;
class ToastManager;

class ToastOverlay final : public QWidget {
    Q_OBJECT

  public:
    static constexpr int animationMilliseconds = 250;

    ToastOverlay(ToastManager& toasts, QWidget* window);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    struct Shown {
        QUuid id;
        ToastBadge* badge;
        bool leaving = false;
    };

    void sync();
    void fadeOut(Shown& shown);
    void layoutBadges(bool animated);
    void updateMask();

    ToastManager& toasts_;
    std::vector<Shown> shown_; // in the manager's order, leaving badges where they stood
};

} // namespace orvel
