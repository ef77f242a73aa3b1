// The changes page of a repository tab: on the left the header, the unstaged and staged lists and
// the commit form; on the right a slot where the tab puts the diff of the selected file.
#pragma once

#include "core/records/FileChange.h"

#include <QWidget>

namespace orvel {

class ChangesFileSection;
class ChangesPaneViewModel;
class OEmptyState;

class ChangesPage final : public QWidget {
    Q_OBJECT

  public:
    explicit ChangesPage(ChangesPaneViewModel& model, QWidget* parent = nullptr);

    // The right side ("changes.diff-slot"), a vertical layout that holds the placeholder until the
    // diff pane is added.
    QWidget& diffSlot() const { return *diffSlot_; }

  signals:
    // A file of a list was selected: its diff is wanted, on the staged or unstaged side.
    void fileSelected(const orvel::FileChange& file, bool staged);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void retranslate();

    QWidget* diffSlot_;
    // Shown in the slot until the diff pane takes its place ("changes.diff-placeholder").
    OEmptyState* placeholder_;
};

} // namespace orvel
