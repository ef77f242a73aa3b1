#include "content/ui/SheetParts.h"

#include "settings/ThemeEngine.h"

#include <QDir>
#include <QFileDialog>
#include <QLabel>

namespace orvel {

QLabel* makeSheetTitle(QWidget* parent) {
    auto* label = new QLabel(parent);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * 15.0 / 13.0);
    font.setBold(true);
    label->setFont(font);
    return label;
}

QLabel* makeSheetCaption(QWidget* parent) {
    auto* label = new QLabel(parent);
    // The placeholder colour is the palette's secondary text, right in light and dark alike.
    label->setForegroundRole(QPalette::PlaceholderText);
    label->setWordWrap(true);
    return label;
}

QLabel* makeSheetError(QWidget* parent, const QString& objectName) {
    auto* label = new QLabel(parent);
    label->setObjectName(objectName);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->hide();
    colourSheetError(label);
    return label;
}

void colourSheetError(QLabel* error) {
    QPalette palette = error->palette();
    palette.setColor(QPalette::WindowText, ThemeEngine::shared().currentTokens().del);
    error->setPalette(palette);
}

void chooseFolder(QWidget* parent, const QString& title, const QString& startFolder,
                  std::function<void(const QString&)> chosen) {
    auto* dialog = new QFileDialog(parent, title, startFolder.isEmpty() ? QDir::homePath() : startFolder);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    dialog->setWindowModality(Qt::WindowModal);
    QObject::connect(dialog, &QFileDialog::fileSelected, parent,
                     [chosen = std::move(chosen)](const QString& folder) {
                         if (!folder.isEmpty())
                             chosen(folder);
                     });
    dialog->open();
}

} // namespace orvel
