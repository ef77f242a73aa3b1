// One toast as the overlay shows it: a rounded badge tinted with the theme's colour for its type,
// with the type's icon, the message, and "×N" when the same toast was raised again. It paints
// itself with its own opacity, which the overlay animates to fade it in and out.
#pragma once

#include "notices/ToastManager.h"

#include <QWidget>

namespace orvel {

class ToastBadge final : public QWidget {
    Q_OBJECT
    Q_PROPERTY(qreal opacity READ opacity WRITE setOpacity)

  public:
    ToastBadge(ToastItem item, QWidget* parent);

    const ToastItem& item() const { return item_; }
    void setItem(ToastItem item);

    qreal opacity() const { return opacity_; }
    void setOpacity(qreal opacity);

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QColor typeColour() const;
    QString repeatText() const;
    QFont repeatFont() const;
    QRect messageRect(const QRect& badge) const;

    ToastItem item_;
    qreal opacity_ = 0;
};

} // namespace orvel
