// One of the landing page's ways in: a wide button with an icon, a title and a line beneath.
#pragma once

#include <QAbstractButton>

namespace orvel {

class WelcomeCard final : public QAbstractButton {
    Q_OBJECT

  public:
    WelcomeCard(const QString& iconName, QWidget* parent = nullptr);

    void setTexts(const QString& title, const QString& subtitle);
    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    // Enter acts like Space, as on the dialogs' buttons.
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QString iconName_;
    QString subtitle_;
};

} // namespace orvel
