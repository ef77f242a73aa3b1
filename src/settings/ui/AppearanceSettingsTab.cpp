#include "settings/ui/AppearanceSettingsTab.h"

#include "settings/AppearanceSettingsPage.h"
#include "settings/LocalizationManager.h"
#include "settings/ThemeEngine.h"
#include "settings/ui/CatalogueThemeDelegate.h"
#include "widgets/OAlert.h"
#include "widgets/OInlineMessage.h"

#include <QComboBox>
#include <QDir>
#include <QEvent>
#include <QFileDialog>
#include <QFontDatabase>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QVBoxLayout>

namespace orvel {

namespace {

constexpr int idRole = CatalogueThemeDelegate::IdRole;
constexpr int builtInRole = Qt::UserRole + 3;

// Stands for "no family of my own" in the font pickers: no installed family has an empty name.
const QString systemDefaultFamily;

QLabel* makeSectionTitle(QWidget* parent) {
    auto* title = new QLabel(parent);
    QFont font = title->font();
    font.setBold(true);
    title->setFont(font);
    return title;
}

// The offset as the picker shows it: a "+" before any value that is not negative.
QString offsetText(double offset) {
    return (offset >= 0 ? QStringLiteral("+") : QString()) + QString::number(offset);
}

// Selects the entry holding `value`, adding one with `text` when the list has none (a family that
// is no longer installed, an offset written by hand), so the picker always shows what is in force.
void showValue(QComboBox* picker, const QVariant& value, const QString& text) {
    int index = picker->findData(value);
    if (index < 0) {
        picker->addItem(text, value);
        index = picker->count() - 1;
    }
    picker->setCurrentIndex(index);
}

void selectRow(QListView* list, const QStandardItemModel& model, const QString& id) {
    for (int row = 0; row < model.rowCount(); ++row) {
        if (model.item(row)->data(idRole).toString() == id) {
            list->setCurrentIndex(model.index(row, 0));
            return;
        }
    }
}

std::optional<QString> familyOf(const QComboBox* picker) {
    const QString family = picker->currentData().toString();
    return family.isEmpty() ? std::nullopt : std::optional(family);
}

} // namespace

AppearanceSettingsTab::AppearanceSettingsTab(AppearanceSettingsPage& page, QWidget* parent)
    : QWidget(parent), page_(page), topRows_(new QVBoxLayout), catalogueTitle_(makeSectionTitle(this)),
      catalogueList_(new QListView(this)), catalogueModel_(new QStandardItemModel(this)),
      filesTitle_(makeSectionTitle(this)), fileThemeList_(new QListView(this)),
      fileThemeModel_(new QStandardItemModel(this)), noCustomThemes_(new QLabel(this)),
      importButton_(new QPushButton(this)), removeButton_(new QPushButton(this)),
      error_(new OInlineMessage(this)), fontsTitle_(makeSectionTitle(this)), uiFontLabel_(new QLabel(this)),
      monoFontLabel_(new QLabel(this)), fontSizeLabel_(new QLabel(this)), uiFontPicker_(new QComboBox(this)),
      monoFontPicker_(new QComboBox(this)), fontSizePicker_(new QComboBox(this)) {
    catalogueList_->setObjectName(QStringLiteral("settings.appearance.theme-picker"));
    fileThemeList_->setObjectName(QStringLiteral("settings.appearance.theme-files"));
    noCustomThemes_->setObjectName(QStringLiteral("settings.appearance.no-custom-themes"));
    importButton_->setObjectName(QStringLiteral("settings.appearance.import-theme"));
    removeButton_->setObjectName(QStringLiteral("settings.appearance.remove-theme"));
    error_->setObjectName(QStringLiteral("settings.appearance.error"));
    uiFontPicker_->setObjectName(QStringLiteral("settings.appearance.ui-font-picker"));
    monoFontPicker_->setObjectName(QStringLiteral("settings.appearance.mono-font-picker"));
    fontSizePicker_->setObjectName(QStringLiteral("settings.appearance.font-size-picker"));

    for (const OrvelTheme& theme : themeCatalogue()) {
        auto* item = new QStandardItem(theme.name);
        item->setEditable(false);
        item->setData(theme.id, idRole);
        catalogueModel_->appendRow(item);
    }
    catalogueList_->setModel(catalogueModel_);
    catalogueList_->setItemDelegate(new CatalogueThemeDelegate(catalogueList_));
    catalogueList_->setUniformItemSizes(true);
    catalogueList_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    catalogueList_->setMinimumWidth(catalogueList_->sizeHintForColumn(0) +
                                    catalogueList_->verticalScrollBar()->sizeHint().width() +
                                    2 * catalogueList_->frameWidth());
    fileThemeList_->setModel(fileThemeModel_);
    fileThemeList_->setUniformItemSizes(true);
    fileThemeList_->setMaximumHeight(fileThemeList_->fontMetrics().height() * 9);
    noCustomThemes_->setForegroundRole(QPalette::PlaceholderText);
    noCustomThemes_->setWordWrap(true);
    for (int offset = -4; offset <= 8; ++offset)
        fontSizePicker_->addItem(offsetText(offset), double(offset));
    for (QComboBox* picker : {uiFontPicker_, monoFontPicker_})
        picker->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);

    auto* catalogueColumn = new QVBoxLayout;
    catalogueColumn->addWidget(catalogueTitle_);
    catalogueColumn->addWidget(catalogueList_, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(importButton_);
    buttons->addWidget(removeButton_);
    buttons->addStretch();
    auto* fonts = new QFormLayout;
    fonts->addRow(uiFontLabel_, uiFontPicker_);
    fonts->addRow(monoFontLabel_, monoFontPicker_);
    fonts->addRow(fontSizeLabel_, fontSizePicker_);
    auto* sideColumn = new QVBoxLayout;
    sideColumn->addWidget(filesTitle_);
    sideColumn->addWidget(fileThemeList_);
    sideColumn->addWidget(noCustomThemes_);
    sideColumn->addLayout(buttons);
    sideColumn->addWidget(error_);
    sideColumn->addSpacing(12);
    sideColumn->addWidget(fontsTitle_);
    sideColumn->addLayout(fonts);
    sideColumn->addStretch();
    auto* columns = new QHBoxLayout;
    columns->addLayout(catalogueColumn, 3);
    columns->addSpacing(12);
    columns->addLayout(sideColumn, 2);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(topRows_);
    layout->addLayout(columns, 1);

    ThemeEngine& engine = page_.engine();
    connect(catalogueList_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [&engine = page_.engine()](const QModelIndex& current) {
                const QString id = current.data(idRole).toString();
                if (current.isValid() && id != engine.activeCatalogueID())
                    engine.previewTheme(id);
            });
    connect(fileThemeList_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this, &engine = page_.engine()](const QModelIndex& current) {
                const QString id = current.data(idRole).toString();
                if (current.isValid() && id != engine.currentTheme().id)
                    engine.previewFileTheme(id);
                showRemoval();
            });
    connect(uiFontPicker_, &QComboBox::activated, this,
            [this, &engine = page_.engine()] { engine.setUIFontFamily(familyOf(uiFontPicker_)); });
    connect(monoFontPicker_, &QComboBox::activated, this,
            [this, &engine = page_.engine()] { engine.setMonoFontFamily(familyOf(monoFontPicker_)); });
    connect(fontSizePicker_, &QComboBox::activated, this, [this, &engine = page_.engine()] {
        engine.setFontSizeOffset(fontSizePicker_->currentData().toDouble());
    });
    connect(importButton_, &QPushButton::clicked, this, &AppearanceSettingsTab::chooseImportFile);
    connect(removeButton_, &QPushButton::clicked, this, &AppearanceSettingsTab::confirmRemoval);
    connect(&page_, &AppearanceSettingsPage::errorMessageChanged, this,
            [this] { error_->setMessage(page_.errorMessage()); });
    connect(&engine, &ThemeEngine::themeChanged, this, &AppearanceSettingsTab::showEngineState);

    fillFontPickers();
    retranslate();
}

void AppearanceSettingsTab::addTopRow(QWidget* row) {
    topRows_->addWidget(row);
}

void AppearanceSettingsTab::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void AppearanceSettingsTab::retranslate() {
    catalogueTitle_->setText(localized("Theme"));
    filesTitle_->setText(localized("Theme Files"));
    noCustomThemes_->setText(localized("No custom themes installed."));
    importButton_->setText(localized("Import Theme"));
    fontsTitle_->setText(localized("Fonts"));
    uiFontLabel_->setText(localized("Interface font"));
    monoFontLabel_->setText(localized("Monospaced font"));
    fontSizeLabel_->setText(localized("Font size"));
    for (QComboBox* picker : {uiFontPicker_, monoFontPicker_})
        picker->setItemText(0, localized("System Default"));
    const auto& catalogue = themeCatalogue();
    for (int row = 0; row < catalogueModel_->rowCount(); ++row) {
        const OrvelTheme& theme = catalogue[static_cast<std::size_t>(row)];
        const QString tag = localized(theme.tag.toUtf8().constData());
        QStandardItem* item = catalogueModel_->item(row);
        item->setData(tag, CatalogueThemeDelegate::TagRole);
        item->setToolTip(tag);
        item->setData(theme.name + QStringLiteral(", ") + tag, Qt::AccessibleTextRole);
    }
    catalogueList_->setAccessibleName(catalogueTitle_->text());
    fileThemeList_->setAccessibleName(filesTitle_->text());
    fileThemeModel_->clear(); // the built-in themes' label is translated too
    showEngineState();
}

void AppearanceSettingsTab::fillFontPickers() {
    const QStringList families = QFontDatabase::families();
    for (QComboBox* picker : {uiFontPicker_, monoFontPicker_}) {
        picker->addItem(QString(), systemDefaultFamily);
        for (const QString& family : families)
            picker->addItem(family, family);
    }
}

// The list is made again only when the themes changed, never under the user's click.
void AppearanceSettingsTab::fillFileThemes() {
    const std::vector<Theme> themes = page_.engine().allThemes();
    bool same = fileThemeModel_->rowCount() == static_cast<int>(themes.size());
    for (int row = 0; same && row < fileThemeModel_->rowCount(); ++row)
        same = fileThemeModel_->item(row)->data(idRole).toString() == themes[row].id &&
               fileThemeModel_->item(row)->data(builtInRole).toBool() == themes[row].isBuiltIn &&
               fileThemeModel_->item(row)->toolTip() == themes[row].name;
    if (same)
        return;
    fileThemeModel_->clear();
    for (const Theme& theme : themes) {
        auto* item = new QStandardItem(theme.isBuiltIn ? localized("%1 (built-in)", theme.name) : theme.name);
        item->setEditable(false);
        item->setToolTip(theme.name);
        item->setData(theme.id, idRole);
        item->setData(theme.isBuiltIn, builtInRole);
        fileThemeModel_->appendRow(item);
    }
    noCustomThemes_->setVisible(page_.engine().externalThemes().empty());
}

void AppearanceSettingsTab::showEngineState() {
    const ThemeEngine& engine = page_.engine();
    fillFileThemes();
    selectRow(catalogueList_, *catalogueModel_, catalogueTheme(engine.activeCatalogueID()).id);
    selectRow(fileThemeList_, *fileThemeModel_, engine.currentTheme().id);
    const std::optional<QString>& uiFamily = engine.uiFontFamily();
    const std::optional<QString>& monoFamily = engine.monoFontFamily();
    showValue(uiFontPicker_, uiFamily.value_or(systemDefaultFamily), uiFamily.value_or(QString()));
    showValue(monoFontPicker_, monoFamily.value_or(systemDefaultFamily), monoFamily.value_or(QString()));
    showValue(fontSizePicker_, engine.fontSizeOffset(), offsetText(engine.fontSizeOffset()));
    showRemoval();
}

// Only an imported theme can be removed: the built-in ones belong to the program.
void AppearanceSettingsTab::showRemoval() {
    const QModelIndex current = fileThemeList_->currentIndex();
    const bool removable = current.isValid() && !current.data(builtInRole).toBool();
    removeButton_->setVisible(removable);
    if (removable)
        removeButton_->setText(localized("Remove theme %1", current.data(Qt::ToolTipRole).toString()));
}

QString AppearanceSettingsTab::selectedFileThemeID() const {
    return fileThemeList_->currentIndex().data(idRole).toString();
}

void AppearanceSettingsTab::chooseImportFile() {
    auto* dialog =
        new QFileDialog(this, localized("Import Theme"), QDir::homePath(), localized("Theme files (*.json)"));
    dialog->setObjectName(QStringLiteral("settings.appearance.import-dialog"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setWindowModality(Qt::WindowModal);
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString& path) {
        if (!path.isEmpty())
            page_.importTheme(path);
    });
    dialog->open();
}

void AppearanceSettingsTab::confirmRemoval() {
    const QString id = selectedFileThemeID();
    const QString name = fileThemeList_->currentIndex().data(Qt::ToolTipRole).toString();
    confirm(this, localized("Remove the theme \"%1\"?", name),
            localized("Its file is deleted from the themes folder. This can't be undone."),
            localized("Remove"), true, [this, id] { page_.removeTheme(id); });
}

} // namespace orvel
