#include "content/ui/SheetParts.h"

#include <QDir>
#include <QFileDialog>
#include <QLabel>

namespace orvel {

QLabel* makeSecondaryLabel(QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setForegroundRole(QPalette::PlaceholderText);
    label->setWordWrap(true);
    return label;
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
