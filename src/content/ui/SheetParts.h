// Pieces the landing page and its dialogs share: a line of secondary text, and the folder chooser.
#pragma once

#include <QString>

#include <functional>

class QLabel;
class QWidget;

namespace orvel {

// A wrapped label in the palette's secondary text colour, right in light and dark alike.
QLabel* makeSecondaryLabel(QWidget* parent);
// Opens a window-modal folder chooser on `parent`; `chosen` gets the folder.
void chooseFolder(QWidget* parent, const QString& title, const QString& startFolder,
                  std::function<void(const QString&)> chosen);

} // namespace orvel
