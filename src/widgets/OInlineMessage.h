// A line of text under a form field that tells what is wrong: wrapped, in the theme's colour for
// deletions and errors, and hidden while it has nothing to say.
#pragma once

#include <QLabel>

#include <optional>

namespace orvel {

class OInlineMessage final : public QLabel {
    Q_OBJECT

  public:
    explicit OInlineMessage(QWidget* parent = nullptr);

    // Shows `message`, or hides the line when there is none.
    void setMessage(const std::optional<QString>& message);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void applyColour();
};

} // namespace orvel
