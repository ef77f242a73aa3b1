// The settings window: for now its one page, the keyboard shortcuts. It is not modal, and the
// keyboard page takes effect at once, so it has only Close.
#pragma once

#include <QDialog>

class QDialogButtonBox;
class QTabWidget;

namespace orvel {

class KeyboardSettingsTab;

class SettingsDialog final : public QDialog {
    Q_OBJECT

  public:
    explicit SettingsDialog(QWidget* parent = nullptr);

    KeyboardSettingsTab& keyboard() const { return *keyboard_; }

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void retranslate();

    QTabWidget* tabs_;
    KeyboardSettingsTab* keyboard_;
    QDialogButtonBox* buttons_;
};

} // namespace orvel
