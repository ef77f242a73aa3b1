// Pieces the clone and init dialogs share: the title and caption at the top, the inline error
// line in the theme's colour for deletions, and the folder chooser.
#pragma once

#include <QString>

#include <functional>

class QLabel;
class QWidget;

namespace orvel {

QLabel* makeSheetTitle(QWidget* parent);
QLabel* makeSheetCaption(QWidget* parent);
QLabel* makeSheetError(QWidget* parent, const QString& objectName);
// Colours a sheet's error line anew, after a theme or palette change.
void colourSheetError(QLabel* error);
// Opens a window-modal folder chooser on `parent`; `chosen` gets the folder.
void chooseFolder(QWidget* parent, const QString& title, const QString& startFolder,
                  std::function<void(const QString&)> chosen);

} // namespace orvel
