// The General tab of the settings window: language, automatic fetch and prune, then the sections
// "Branch Creation", "Clone & Init" and "Diff". It edits the model's values; the window's Apply
// and Cancel store or drop them.
#pragma once

#include <QWidget>

#include <functional>

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QSpinBox;

namespace orvel {

class ChoicePicker;
class GeneralSettingsViewModel;
struct GeneralSettings;

class GeneralSettingsTab final : public QWidget {
    Q_OBJECT

  public:
    explicit GeneralSettingsTab(GeneralSettingsViewModel& model, QWidget* parent = nullptr);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void retranslate();
    void showValues();
    // Hands the model its values with one field changed by the user.
    void edit(const std::function<void(GeneralSettings&)>& change);

    GeneralSettingsViewModel& model_;
    ChoicePicker* language_;
    QSpinBox* autoFetchInterval_;
    QCheckBox* autoPrune_;
    QGroupBox* branchSection_;
    ChoicePicker* branchSpace_;
    QGroupBox* initSection_;
    QLineEdit* initMessage_;
    QLineEdit* initDescription_;
    ChoicePicker* initFile_;
    QGroupBox* diffSection_;
    ChoicePicker* largeFileSize_;
    ChoicePicker* largeFileLines_;
    // The labels of the rows, in the order of retranslate().
    QLabel* languageLabel_;
    QLabel* intervalLabel_;
    QLabel* branchSpaceLabel_;
    QLabel* initMessageLabel_;
    QLabel* initDescriptionLabel_;
    QLabel* initFileLabel_;
    QLabel* largeFileSizeLabel_;
    QLabel* largeFileLinesLabel_;
};

} // namespace orvel
