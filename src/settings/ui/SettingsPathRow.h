// A settings row for a path: a text field bound to the value and a "Browse" button that lets the
// user pick a file, starting in a given folder. Its identifiers end with the row's label.
#pragma once

#include <QString>
#include <QWidget>

class QLineEdit;
class QPushButton;

namespace orvel {

class SettingsPathRow final : public QWidget {
    Q_OBJECT

  public:
    // `label` is the English label of the row, which names its identifiers.
    SettingsPathRow(const char* label, QString startDir, QWidget* parent = nullptr);

    QString text() const;
    // Shows `text` without reporting it as an edit.
    void setText(const QString& text);

  signals:
    // The user typed or picked a path.
    void textEdited(const QString& text);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void browse();
    void retranslate();

    const char* label_;
    QString startDir_;
    QLineEdit* field_;
    QPushButton* browse_;
};

} // namespace orvel
