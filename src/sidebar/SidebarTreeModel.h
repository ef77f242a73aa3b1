// The sidebar's four sections as one item tree: LOCAL (branches as folders), REMOTE (a folder a
// remote, its branches as folders within), TAGS and STASHES. While a query is in force the
// sections hold the filter's finds. Rows carry what the painting delegate and the context menus
// need; a refresh that changed nothing shown leaves the model untouched, so the view keeps its
// expanded folders and selection.
#pragma once

#include "core/records/BranchEntry.h"
#include "core/records/StashEntry.h"
#include "core/records/TagEntry.h"
#include "sidebar/BranchTree.h"

#include <QAbstractItemModel>
#include <QString>

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <variant>
#include <vector>

namespace orvel {

class SidebarViewModel;

class SidebarTreeModel final : public QAbstractItemModel {
    Q_OBJECT

  public:
    enum class Kind { section, remote, folder, branch, tag, stash, placeholder };
    enum class Section { local, remote, tags, stashes };

    enum Role {
        KindRole = Qt::UserRole + 1, // Kind, as an int
        // A stable identity across rebuilds: "section/local", "local/feature/x", "tag/v1"...
        IdRole,
        // Secondary text at the right: "↑1 ↓2" beside a branch, "stash@{0}" beside a stash.
        DetailRole,
        IsCurrentRole,  // the checked-out branch
        IsMainRole,     // the repository's default branch
        IsMergedRole,   // merged into the default branch
        IsOnRemoteRole, // a tag pushed from here
    };

    explicit SidebarTreeModel(const SidebarViewModel& sidebar, QObject* parent = nullptr);
    ~SidebarTreeModel() override;

    Kind kind(const QModelIndex& index) const;
    // The record of a branch, tag or stash row; null on any other row.
    const BranchEntry* branch(const QModelIndex& index) const;
    const TagEntry* tag(const QModelIndex& index) const;
    const StashEntry* stash(const QModelIndex& index) const;
    QModelIndex sectionIndex(Section section) const;
    // Branch, tag and stash rows in all sections.
    int shownItemCount() const { return shownItemCount_; }

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    // Builds the tree again from the sidebar's state; does nothing when no shown fact changed.
    void rebuild();

  private:
    struct Item;
    // What the tree shows, compared to skip rebuilds that would change nothing.
    struct Shown;

    const Item* item(const QModelIndex& index) const;
    std::unique_ptr<Item> build(const Shown& shown);
    void addBranches(Item& parent, const std::vector<BranchTreeNode>& nodes, const Shown& shown);

    const SidebarViewModel& sidebar_;
    std::unique_ptr<Item> root_;
    std::unique_ptr<Shown> shown_;
    int shownItemCount_ = 0;
};

} // namespace orvel
