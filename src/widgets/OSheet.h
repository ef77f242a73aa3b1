// The frame of a small window-modal sheet: a bold caption, the sheet's own content, a line for
// git's refusal, and Cancel beside the default action. Escape and Cancel reject the sheet; Return
// reaches the default action. Subclasses set the texts in retranslate(), which runs again when the
// language changes.
#pragma once

#include <QDialog>

class QLabel;
class QPushButton;
class QVBoxLayout;

namespace orvel {

class OInlineMessage;

class OSheet : public QDialog {
    Q_OBJECT

  public:
    explicit OSheet(QWidget* parent = nullptr);

  protected:
    // Where the sheet's fields go, between the caption and the error line.
    QVBoxLayout* contentLayout() const { return content_; }
    QLabel* caption() const { return caption_; }
    OInlineMessage* errorLine() const { return errorLine_; }
    QPushButton* cancelButton() const { return cancelButton_; }
    QPushButton* acceptButton() const { return acceptButton_; }

    virtual void retranslate() = 0;
    void changeEvent(QEvent* event) override;

  private:
    QLabel* caption_;
    QVBoxLayout* content_;
    OInlineMessage* errorLine_;
    QPushButton* cancelButton_;
    QPushButton* acceptButton_;
};

} // namespace orvel
