// The toolbar's status area: the running activity while git works, otherwise how far the current
// branch is ahead of and behind its upstream.
#pragma once

#include <QWidget>

#include <optional>

class QLabel;
class QProgressBar;

namespace orvel {

class ToolbarStatusView final : public QWidget {
    Q_OBJECT

  public:
    explicit ToolbarStatusView(QWidget* parent = nullptr);

    void setState(const std::optional<QString>& activity, int ahead, int behind);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void show();

    QProgressBar* busy_;
    QLabel* text_;
    std::optional<QString> activity_;
    int ahead_ = 0;
    int behind_ = 0;
};

} // namespace orvel
