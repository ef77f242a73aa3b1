// The small sheet over the rebase plan in which a commit's new message is written.
#pragma once

#include <QDialog>

class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace orvel {

class RewordMessageDialog final : public QDialog {
    Q_OBJECT

  public:
    RewordMessageDialog(const QString& message, QWidget* parent = nullptr);

    QString message() const;

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void retranslate();

    QLabel* label_;
    QPlainTextEdit* text_;
    QPushButton* cancel_;
    QPushButton* save_;
};

} // namespace orvel
