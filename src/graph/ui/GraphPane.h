// The commit graph of one repository: the search bar above the table of rows, the context menu of
// a commit, the questions asked before a reset or a pick, and Ctrl+G's question for a name. It
// shows the pane's model, asks it for the pages below the rows in view and for the rest of the
// history on End, and forwards the user's actions to it.
#pragma once

#include "core/support/UserDefaults.h"
#include "graph/ui/GraphColumnWidths.h"

#include <QWidget>

#include <memory>

class QAction;
class QMenu;

namespace orvel {

class GraphRowDelegate;
class GraphSearchBar;
class GraphTableModel;
class GraphTableView;
class RepoGraphPaneViewModel;
struct GraphConfirmation;

class GraphPane final : public QWidget {
    Q_OBJECT

  public:
    explicit GraphPane(RepoGraphPaneViewModel& model, QWidget* parent = nullptr);
    ~GraphPane() override;

    GraphTableView& table() const { return *table_; }

  protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void showRows();
    void showAppendedRows(int first);
    void followEnd();
    // Keeps a page of rows loaded below the last one in view.
    void loadAhead();
    void loadToEnd(bool byKey);
    void askForCommit();
    void showSelection();
    void openSearch();
    void userSelected();
    void showContextMenu(const QPoint& position);
    QMenu* contextMenu(const std::string& hash);
    void ask(const GraphConfirmation& confirmation);
    void restyle();
    void retranslate();
    void setUpColumns();
    // Lays the columns out again in the table's width.
    void fitColumns();
    void columnResized(int column, int oldWidth, int newWidth);

    RepoGraphPaneViewModel& model_;
    SettingsUserDefaults defaults_;
    GraphSearchBar* searchBar_;
    GraphTableView* table_;
    GraphTableModel* rows_;
    GraphRowDelegate* delegate_;
    QAction* searchAction_;
    QAction* copyHashAction_;
    QAction* goToAction_;
    // From End until the last row is loaded: that row then becomes the current one (after a key)
    // or comes into view (after a drag of the scroll bar).
    enum class EndFollowing { none, select, scroll };
    EndFollowing followsEnd_ = EndFollowing::none;
    // Set while the selection follows the model, so that it isn't sent back as a user's choice.
    bool followingModel_ = false;
    // The widths the user gave the columns; those shown may be narrower, see fitGraphColumns.
    GraphColumnWidths chosenWidths_{};
    // Set while the columns are laid out, so that their new widths aren't taken as the user's.
    bool fitting_ = false;
};

} // namespace orvel
