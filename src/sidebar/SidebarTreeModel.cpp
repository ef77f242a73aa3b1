#include "sidebar/SidebarTreeModel.h"

#include "settings/LocalizationManager.h"
#include "sidebar/SidebarViewModel.h"

namespace orvel {

namespace {

QString decoded(const std::string& bytes) {
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

QString sectionTitle(SidebarTreeModel::Section section) {
    switch (section) {
    case SidebarTreeModel::Section::local:
        return localized("LOCAL");
    case SidebarTreeModel::Section::remote:
        return localized("REMOTE");
    case SidebarTreeModel::Section::tags:
        return localized("TAGS");
    case SidebarTreeModel::Section::stashes:
        return localized("STASHES");
    }
    return {};
}

QString sectionId(SidebarTreeModel::Section section) {
    static const char* const ids[] = {"section/local", "section/remote", "section/tags", "section/stashes"};
    return QString::fromLatin1(ids[static_cast<int>(section)]);
}

QString aheadBehind(const BranchEntry& branch) {
    if (!branch.upstream)
        return {};
    QStringList parts;
    if (branch.upstream->ahead > 0)
        parts << QStringLiteral("↑%1").arg(branch.upstream->ahead);
    if (branch.upstream->behind > 0)
        parts << QStringLiteral("↓%1").arg(branch.upstream->behind);
    return parts.join(QLatin1Char(' '));
}

} // namespace

struct SidebarTreeModel::Item {
    Kind kind = Kind::section;
    Section section = Section::local;
    QString text; // the name shown; sections and placeholders are named in data(), in the language in force
    QString id;
    std::variant<std::monostate, BranchEntry, TagEntry, StashEntry> record;
    bool isMain = false;
    bool isMerged = false;
    bool isOnRemote = false;
    bool secondLine = false; // the explanation under a placeholder's title
    Item* parent = nullptr;
    int row = 0;
    std::vector<std::unique_ptr<Item>> children;

    Item& add(std::unique_ptr<Item> child) {
        child->parent = this;
        child->row = static_cast<int>(children.size());
        children.push_back(std::move(child));
        return *children.back();
    }
};

struct SidebarTreeModel::Shown {
    bool filtering = false;
    SidebarLists lists;
    std::optional<std::string> mainBranch;
    std::set<std::string> merged;
    std::set<std::string> remoteTags;

    bool operator==(const Shown&) const = default;
};

SidebarTreeModel::SidebarTreeModel(const SidebarViewModel& sidebar, QObject* parent)
    : QAbstractItemModel(parent), sidebar_(sidebar) {
    root_ = build(Shown{});
    shown_ = std::make_unique<Shown>();
    rebuild();
}

SidebarTreeModel::~SidebarTreeModel() = default;

void SidebarTreeModel::rebuild() {
    const SidebarFilterViewModel& filter = sidebar_.filter();
    Shown shown;
    shown.filtering = filter.isActive();
    if (shown.filtering)
        shown.lists = filter.results();
    else
        shown.lists = {sidebar_.localBranches(), sidebar_.remoteBranches(), sidebar_.localTags(),
                       sidebar_.stashEntries()};
    shown.mainBranch = sidebar_.mainBranchName();
    shown.merged = sidebar_.mergedBranchNames();
    shown.remoteTags = sidebar_.remoteTagNames();
    if (shown_ && *shown_ == shown)
        return;
    beginResetModel();
    root_ = build(shown);
    *shown_ = std::move(shown);
    endResetModel();
}

std::unique_ptr<SidebarTreeModel::Item> SidebarTreeModel::build(const Shown& shown) {
    auto root = std::make_unique<Item>();
    const auto section = [&](Section which) -> Item& {
        auto item = std::make_unique<Item>();
        item->section = which;
        item->id = sectionId(which);
        return root->add(std::move(item));
    };
    shownItemCount_ = 0;

    // Without a query the sidebar's own trees serve, built once a change of refs.
    Item& local = section(Section::local);
    if (shown.filtering)
        addBranches(local, buildBranchTree(shown.lists.localBranches, "local"), shown);
    else
        addBranches(local, sidebar_.localTree(), shown);

    Item& remote = section(Section::remote);
    const std::vector<RemoteTreeGroup> filteredRemotes =
        shown.filtering ? buildRemoteTrees(groupByRemote(shown.lists.remoteBranches))
                        : std::vector<RemoteTreeGroup>{};
    for (const RemoteTreeGroup& group :
         shown.filtering ? filteredRemotes : sidebar_.remoteGroupedTreeNodes()) {
        auto item = std::make_unique<Item>();
        item->kind = Kind::remote;
        item->section = Section::remote;
        item->text = decoded(group.remote);
        item->id = QStringLiteral("remote/") + item->text;
        addBranches(remote.add(std::move(item)), group.nodes, shown);
    }

    Item& tags = section(Section::tags);
    for (const TagEntry& tag : shown.lists.tags) {
        auto item = std::make_unique<Item>();
        item->kind = Kind::tag;
        item->section = Section::tags;
        item->text = decoded(tag.name);
        item->id = QStringLiteral("tag/") + item->text;
        item->isOnRemote = shown.remoteTags.contains(tag.name);
        item->record = tag;
        tags.add(std::move(item));
    }
    shownItemCount_ += static_cast<int>(shown.lists.tags.size());

    Item& stashes = section(Section::stashes);
    for (const StashEntry& stash : shown.lists.stashes) {
        auto item = std::make_unique<Item>();
        item->kind = Kind::stash;
        item->section = Section::stashes;
        item->text = decoded(stash.message);
        item->id = QStringLiteral("stash/") + QString::fromStdString(stash.hash);
        item->record = stash;
        stashes.add(std::move(item));
    }
    shownItemCount_ += static_cast<int>(shown.lists.stashes.size());
    if (shown.lists.stashes.empty() && !shown.filtering) {
        for (const bool second : {false, true}) {
            auto item = std::make_unique<Item>();
            item->kind = Kind::placeholder;
            item->section = Section::stashes;
            item->secondLine = second;
            item->id = second ? QStringLiteral("stash/none/message") : QStringLiteral("stash/none");
            stashes.add(std::move(item));
        }
    }
    return root;
}

void SidebarTreeModel::addBranches(Item& parent, const std::vector<BranchTreeNode>& nodes,
                                   const Shown& shown) {
    for (const BranchTreeNode& node : nodes) {
        auto item = std::make_unique<Item>();
        item->section = parent.section;
        item->text = decoded(node.name);
        item->id = decoded(node.id);
        if (node.branch) {
            item->kind = Kind::branch;
            item->isMain = !node.branch->isRemote && shown.mainBranch == node.branch->name;
            item->isMerged = !node.branch->isRemote && shown.merged.contains(node.branch->name);
            item->record = *node.branch;
            ++shownItemCount_;
        } else {
            item->kind = Kind::folder;
        }
        addBranches(parent.add(std::move(item)), node.children, shown);
    }
}

const SidebarTreeModel::Item* SidebarTreeModel::item(const QModelIndex& index) const {
    return index.isValid() ? static_cast<const Item*>(index.internalPointer()) : root_.get();
}

SidebarTreeModel::Kind SidebarTreeModel::kind(const QModelIndex& index) const {
    return item(index)->kind;
}

const BranchEntry* SidebarTreeModel::branch(const QModelIndex& index) const {
    return index.isValid() ? std::get_if<BranchEntry>(&item(index)->record) : nullptr;
}

const TagEntry* SidebarTreeModel::tag(const QModelIndex& index) const {
    return index.isValid() ? std::get_if<TagEntry>(&item(index)->record) : nullptr;
}

const StashEntry* SidebarTreeModel::stash(const QModelIndex& index) const {
    return index.isValid() ? std::get_if<StashEntry>(&item(index)->record) : nullptr;
}

QModelIndex SidebarTreeModel::sectionIndex(Section section) const {
    return index(static_cast<int>(section), 0);
}

QModelIndex SidebarTreeModel::index(int row, int column, const QModelIndex& parent) const {
    const Item* owner = item(parent);
    if (column != 0 || row < 0 || row >= static_cast<int>(owner->children.size()))
        return {};
    return createIndex(row, 0, owner->children[static_cast<std::size_t>(row)].get());
}

QModelIndex SidebarTreeModel::parent(const QModelIndex& child) const {
    if (!child.isValid())
        return {};
    const Item* owner = item(child)->parent;
    if (!owner || owner == root_.get())
        return {};
    return createIndex(owner->row, 0, const_cast<Item*>(owner));
}

int SidebarTreeModel::rowCount(const QModelIndex& parent) const {
    if (parent.column() > 0)
        return 0;
    return static_cast<int>(item(parent)->children.size());
}

int SidebarTreeModel::columnCount(const QModelIndex&) const {
    return 1;
}

Qt::ItemFlags SidebarTreeModel::flags(const QModelIndex& index) const {
    if (!index.isValid())
        return Qt::NoItemFlags;
    if (kind(index) == Kind::placeholder)
        return Qt::ItemIsEnabled;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable;
}

QVariant SidebarTreeModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    const Item& row = *item(index);
    const BranchEntry* entry = std::get_if<BranchEntry>(&row.record);
    switch (role) {
    case Qt::DisplayRole:
        if (row.kind == Kind::section)
            return sectionTitle(row.section);
        if (row.kind == Kind::placeholder)
            return row.secondLine ? localized("Stash changes to save work in progress without committing.")
                                  : localized("No stashes");
        return row.text;
    case Qt::ToolTipRole:
        if (entry) {
            QString tip = decoded(entry->name);
            if (entry->lastCommitSubject)
                tip += QLatin1Char('\n') + decoded(*entry->lastCommitSubject);
            return tip;
        }
        // The whole name of any other row, which a narrow column cuts short.
        return row.kind == Kind::section ? QVariant() : data(index, Qt::DisplayRole);
    case Qt::AccessibleTextRole: {
        QString text = data(index, Qt::DisplayRole).toString();
        if (entry && entry->isCurrent)
            text += QStringLiteral(", ") + localized("current branch");
        if (const QString detail = data(index, DetailRole).toString(); !detail.isEmpty())
            text += QStringLiteral(", ") + detail;
        return text;
    }
    case KindRole:
        return static_cast<int>(row.kind);
    case IdRole:
        return row.id;
    case DetailRole:
        if (entry)
            return aheadBehind(*entry);
        if (const auto* stash = std::get_if<StashEntry>(&row.record))
            return QStringLiteral("stash@{%1}").arg(stash->index);
        return {};
    case IsCurrentRole:
        return entry && entry->isCurrent && !entry->isRemote;
    case IsMainRole:
        return row.isMain;
    case IsMergedRole:
        return row.isMerged;
    case IsOnRemoteRole:
        return row.isOnRemote;
    default:
        return {};
    }
}

} // namespace orvel
