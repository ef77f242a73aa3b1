// The strip at the top of a repository tab while a merge, rebase, cherry-pick or revert is under
// way: what the repository is doing, the merge editor for each conflicted file, Skip and Continue
// for a rebase, and Abort after a confirmation. Hidden while the repository is clean.
#pragma once

#include "settings/Theme.h"

#include <QColor>
#include <QWidget>

class QLabel;
class QMenu;
class QPushButton;
class QToolButton;

namespace orvel {

class ConflictBannerViewModel;
struct ConflictEntry;

// The banner's colours from the theme's: its text, and the text of its translucent buttons, moved
// where needed to be read on the banner and on a button, whether at rest or pressed.
struct ConflictBannerColours {
    QColor background;
    QColor text;
    QColor button;        // translucent, over the banner
    QColor pressedButton; // the same, stronger
    QColor buttonText;

    static ConflictBannerColours of(const ConflictColors& theme);
};

class ConflictBanner final : public QWidget {
    Q_OBJECT

  public:
    explicit ConflictBanner(ConflictBannerViewModel& model, QWidget* parent = nullptr);

    // Opens the merge editor on one conflicted file.
    void openMergeEditor(const ConflictEntry& conflict);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void showState();
    void applyColours();
    void confirmAbort();

    ConflictBannerViewModel& model_;
    QLabel* icon_;
    QLabel* text_;
    QToolButton* openMergeEditor_;
    QMenu* files_; // each conflicted file, offered when there is more than one
    QPushButton* skip_;
    QPushButton* continue_;
    QPushButton* abort_;
};

} // namespace orvel
