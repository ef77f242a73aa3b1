// A toolbar button that can carry a count in a small pill on its icon's corner (the commits a
// push would send, or a pull would bring). The pill is painted by the button itself.
#pragma once

#include <QToolButton>

namespace orvel {

class GitToolbarButton final : public QToolButton {
    Q_OBJECT

  public:
    explicit GitToolbarButton(QWidget* parent = nullptr);

    int badge() const { return badge_; }
    // Shown when above 0.
    void setBadge(int count);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    int badge_ = 0;
};

} // namespace orvel
