// The Appearance tab of the settings window: the catalogue's palettes with a sample of each, the
// theme files with import and removal, and the fonts. Every choice previews at once in the running
// window through the theme engine; the window's Apply keeps it and Cancel reverts it.
#pragma once

#include <QWidget>

class QComboBox;
class QLabel;
class QListView;
class QPushButton;
class QStandardItemModel;
class QVBoxLayout;

namespace orvel {

class AppearanceSettingsPage;
class OInlineMessage;

class AppearanceSettingsTab final : public QWidget {
    Q_OBJECT

  public:
    explicit AppearanceSettingsTab(AppearanceSettingsPage& page, QWidget* parent = nullptr);

    // Puts `row` above the tab's own sections, across their full width; the tab takes ownership.
    void addTopRow(QWidget* row);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void retranslate();
    void fillFileThemes();
    void fillFontPickers();
    void showEngineState();
    void showRemoval();
    QString selectedFileThemeID() const;
    void chooseImportFile();
    void confirmRemoval();

    AppearanceSettingsPage& page_;
    QVBoxLayout* topRows_;
    QLabel* catalogueTitle_;
    QListView* catalogueList_;
    QStandardItemModel* catalogueModel_;
    QLabel* filesTitle_;
    QListView* fileThemeList_;
    QStandardItemModel* fileThemeModel_;
    QLabel* noCustomThemes_;
    QPushButton* importButton_;
    QPushButton* removeButton_;
    OInlineMessage* error_;
    QLabel* fontsTitle_;
    QLabel* uiFontLabel_;
    QLabel* monoFontLabel_;
    QLabel* fontSizeLabel_;
    QComboBox* uiFontPicker_;
    QComboBox* monoFontPicker_;
    QComboBox* fontSizePicker_;
};

} // namespace orvel
