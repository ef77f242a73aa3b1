// The changes page of a repository tab: on the left the header, the unstaged and staged lists and
// the commit form; on the right a slot where the tab puts the diff of the selected file.
#pragma once

#include "core/records/FileChange.h"

#include <QWidget>

namespace orvel {

class ChangesFileSection;
class ChangesPaneViewModel;

class ChangesPage final : public QWidget {
    Q_OBJECT

  public:
    explicit ChangesPage(ChangesPaneViewModel& model, QWidget* parent = nullptr);

    // The empty right side ("changes.diff-slot"), laid out to take one widget.
    QWidget& diffSlot() const { return *diffSlot_; }

  signals:
    // A file of a list was selected: its diff is wanted, on the staged or unstaged side.
    void fileSelected(const orvel::FileChange& file, bool staged);

  private:
    QWidget* diffSlot_;
};

} // namespace orvel
