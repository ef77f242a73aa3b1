// The appearance control at the top of the Appearance tab: System, Light or Dark. A choice shows at
// once and is stored by the window's Apply; Cancel brings back the stored one.
#pragma once

#include <QWidget>

class QLabel;

namespace orvel {

class ChoicePicker;
class GeneralSettingsViewModel;

class AppearancePicker final : public QWidget {
    Q_OBJECT

  public:
    explicit AppearancePicker(GeneralSettingsViewModel& model, QWidget* parent = nullptr);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void retranslate();

    GeneralSettingsViewModel& model_;
    QLabel* label_;
    ChoicePicker* picker_;
};

} // namespace orvel
