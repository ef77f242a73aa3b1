// A one-line message inside a view, coloured by its kind from the theme's status colours, with
// optional buttons at its end: an import that failed, a state the user should act on.
#pragma once

#include <QWidget>

#include <functional>

class QHBoxLayout;
class QLabel;
class QPushButton;

namespace orvel {

class OInlineBanner final : public QWidget {
    Q_OBJECT

  public:
    enum class Kind { info, success, warning, error };

    explicit OInlineBanner(QWidget* parent = nullptr);

    Kind kind() const { return kind_; }
    QString message() const;
    // Shows the banner with `message` (already localised).
    void setMessage(Kind kind, const QString& message);

    // A button at the end of the line; the caller sets its objectName.
    QPushButton* addButton(const QString& text, std::function<void()> triggered);
    void removeButtons();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    QColor kindColour() const;
    void updateIcon();

    Kind kind_ = Kind::info;
    QLabel* icon_;
    QLabel* message_;
    QHBoxLayout* buttons_;
};

} // namespace orvel
