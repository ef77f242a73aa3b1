// The signing page of the settings window: the format, then for GPG the program and the key, for
// SSH the key and the allowed-signers file, the two toggles, the status line and the last error.
// It shows its view model and forwards what the user does; the window's Apply and Cancel drive
// the model.
#pragma once

#include <QWidget>

#include <functional>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace orvel {

class OInlineMessage;
class SigningSettingsViewModel;

class SigningSettingsTab final : public QWidget {
    Q_OBJECT

  public:
    explicit SigningSettingsTab(SigningSettingsViewModel& model, QWidget* parent = nullptr);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    // A text field with a "Browse" button beside it.
    struct PathRow {
        QWidget* row;
        QLineEdit* text;
        QPushButton* browse;
    };
    PathRow makePathRow(const QString& rowName, const QString& label);
    QComboBox* makeKeyPicker(const QString& name);
    void chooseFile(const QString& title, const QString& startFolder,
                    std::function<void(const QString&)> chosen);

    void retranslate();
    void showForm();
    void showKeys();
    void showError();

    SigningSettingsViewModel& model_;
    QFormLayout* form_;
    QLabel* formatLabel_;
    QComboBox* format_;
    QLabel* gpgProgramLabel_;
    PathRow gpgProgram_;
    QLabel* gpgKeyLabel_;
    QComboBox* gpgKey_;
    QLabel* sshKeyLabel_;
    QWidget* sshKeyRow_;
    QComboBox* sshKey_;
    QPushButton* sshKeyBrowse_;
    QLabel* allowedSignersLabel_;
    PathRow allowedSigners_;
    QCheckBox* signCommits_;
    QCheckBox* signTags_;
    QLabel* statusLabel_;
    QLabel* status_;
    OInlineMessage* error_;
};

} // namespace orvel
