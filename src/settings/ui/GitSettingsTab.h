// The settings' Git tab: which git program runs, and the identity and defaults of the user's
// global git configuration. It shows its view model and forwards every edit to it.
#pragma once

#include <QWidget>

class QComboBox;
class QFormLayout;
class QLineEdit;

namespace orvel {

class GitSettingsViewModel;
class OInlineMessage;
class SettingsPathRow;

class GitSettingsTab final : public QWidget {
    Q_OBJECT

  public:
    // The tag of the picker's last item, which lets the user choose a file.
    static constexpr const char* customBinaryTag = "__custom__";

    explicit GitSettingsTab(GitSettingsViewModel& model, QWidget* parent = nullptr);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void showFields();
    void showBinaries();
    void showError();
    void binaryChosen(int index);
    void chooseCustomBinary();
    void retranslate();

    GitSettingsViewModel& model_;
    QFormLayout* form_;
    QComboBox* binaryPicker_;
    QLineEdit* userName_;
    QLineEdit* userEmail_;
    QLineEdit* defaultBranch_;
    QLineEdit* sshCommand_;
    SettingsPathRow* globalExcludes_;
    OInlineMessage* error_;
};

} // namespace orvel
