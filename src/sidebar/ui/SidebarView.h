// The tab's left column: the filter field with its whole-word and regular-expression switches, the
// tree of local branches, remotes, tags and stashes, and what stands in the tree's place while
// branches load, when the repository is empty or when nothing matches. Every action is in the rows'
// context menus; the questions before a destructive one follow the model's pending fields. Which
// sections are open is kept per repository in the settings.
#pragma once

#include "sidebar/SidebarSectionExpansion.h"

#include <QPointer>
#include <QSet>
#include <QWidget>

#include <string>

class QLineEdit;
class QStackedWidget;
class QToolButton;
class QTreeView;
class QMenu;
class QMessageBox;

namespace orvel {

class OEmptyState;
class OInlineBanner;
class SidebarTreeModel;
class SidebarViewModel;
class UserDefaults;
struct BranchEntry;
struct TagEntry;
struct StashEntry;

class SidebarView final : public QWidget {
    Q_OBJECT

  public:
    SidebarView(SidebarViewModel& sidebar, UserDefaults& defaults, QWidget* parent = nullptr);

    SidebarTreeModel& treeModel() const { return *model_; }
    QTreeView& tree() const { return *tree_; }

  protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void retranslate();
    void rebuild();
    void showState();
    void showPendingQuestion();
    void rememberExpansion(const QModelIndex& index, bool expanded);
    void restoreExpansion(const QModelIndex& parent);
    void select(const QModelIndex& index);
    void showMenu(const QPoint& position);
    void addBranchActions(QMenu& menu, const BranchEntry& branch);
    void addTagActions(QMenu& menu, const TagEntry& tag);
    void addStashActions(QMenu& menu, const StashEntry& stash);
    void deleteSelected();
    void renameBranch(const BranchEntry& branch);
    void createBranchAt(const BranchEntry& branch);
    void createTagAt(const std::string& hash);
    void showTagDetail(const TagEntry& tag);
    void manageRemotes();

    SidebarViewModel& sidebar_;
    SidebarTreeModel* model_;
    QLineEdit* filterField_;
    QToolButton* wordToggle_;
    QToolButton* regexToggle_;
    QToolButton* remotesButton_;
    OInlineBanner* errorBanner_;
    QStackedWidget* pages_;
    QTreeView* tree_;
    OEmptyState* state_;
    QPointer<QMessageBox> question_;
    SidebarSectionExpansion sections_;
    // Ids of the folders the user has expanded, so that a rebuild opens them again.
    QSet<QString> expandedIds_;
    bool restoringExpansion_ = false;
};

} // namespace orvel
