// What an empty list or view shows instead of nothing: an icon, a title and a line of explanation,
// centred in the space.
#pragma once

#include <QWidget>

class QLabel;

namespace orvel {

class OEmptyState final : public QWidget {
    Q_OBJECT

  public:
    // `iconName` is a freedesktop icon name (see themedIcon); the texts are already localised.
    OEmptyState(const QString& iconName, const QString& title, const QString& message,
                QWidget* parent = nullptr);

    void setIconName(const QString& iconName);
    void setTitle(const QString& title);
    void setMessage(const QString& message);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void updateIcon();

    QString iconName_;
    QLabel* icon_;
    QLabel* title_;
    QLabel* message_;
};

} // namespace orvel
