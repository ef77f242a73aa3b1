#include "sidebar/BranchTree.h"

#include <QCollator>
#include <QString>

#include <algorithm>
#include <map>
#include <memory>

namespace orvel {

namespace {

// The folders met while building, with their leaves; turned into nodes once every name is in.
struct Folder {
    std::map<std::string, std::unique_ptr<Folder>, std::less<>> folders;
    std::vector<BranchTreeNode> leaves;
};

std::vector<std::string_view> componentsOf(std::string_view name) {
    std::vector<std::string_view> parts;
    while (!name.empty()) {
        const auto slash = name.find('/');
        const std::string_view part = name.substr(0, slash);
        if (!part.empty())
            parts.push_back(part);
        if (slash == std::string_view::npos)
            break;
        name.remove_prefix(slash + 1);
    }
    return parts;
}

// Names are decoded once a level, not at every comparison. Names equal but for case keep git's
// byte order, so that the order never depends on the sort's whims.
void sortLevel(std::vector<BranchTreeNode>& nodes, const QCollator& collator) {
    std::vector<std::pair<QString, std::size_t>> keys;
    keys.reserve(nodes.size());
    for (std::size_t i = 0; i < nodes.size(); ++i)
        keys.emplace_back(
            QString::fromUtf8(nodes[i].name.data(), static_cast<qsizetype>(nodes[i].name.size())), i);
    std::sort(keys.begin(), keys.end(), [&](const auto& a, const auto& b) {
        const BranchTreeNode& first = nodes[a.second];
        const BranchTreeNode& second = nodes[b.second];
        if (first.isFolder() != second.isFolder())
            return first.isFolder();
        if (const int order = collator.compare(a.first, b.first); order != 0)
            return order < 0;
        return first.name < second.name;
    });
    std::vector<BranchTreeNode> sorted;
    sorted.reserve(nodes.size());
    for (auto& key : keys)
        sorted.push_back(std::move(nodes[key.second]));
    nodes = std::move(sorted);
}

std::vector<BranchTreeNode> nodesOf(Folder& folder, const std::string& id, const QCollator& collator) {
    std::vector<BranchTreeNode> nodes;
    nodes.reserve(folder.folders.size() + folder.leaves.size());
    for (auto& [name, child] : folder.folders) {
        BranchTreeNode node;
        node.id = id + "/" + name;
        node.name = name;
        node.children = nodesOf(*child, node.id, collator);
        nodes.push_back(std::move(node));
    }
    for (auto& leaf : folder.leaves)
        nodes.push_back(std::move(leaf));
    sortLevel(nodes, collator);
    return nodes;
}

} // namespace

std::vector<BranchTreeNode> buildBranchTree(const std::vector<BranchEntry>& branches, std::string_view root,
                                            std::string_view stripPrefix) {
    Folder top;
    const std::string rootId(root);
    for (const BranchEntry& branch : branches) {
        std::string_view name = branch.name;
        if (!stripPrefix.empty() && name.starts_with(stripPrefix))
            name.remove_prefix(stripPrefix.size());
        const auto parts = componentsOf(name);
        if (parts.empty())
            continue;
        Folder* folder = &top;
        std::string id = rootId;
        for (std::size_t i = 0; i + 1 < parts.size(); ++i) {
            auto& child = folder->folders[std::string(parts[i])];
            if (!child)
                child = std::make_unique<Folder>();
            folder = child.get();
            id.append("/").append(parts[i]);
        }
        BranchTreeNode leaf;
        leaf.name = std::string(parts.back());
        leaf.id = id + "/" + leaf.name;
        leaf.branch = branch;
        folder->leaves.push_back(std::move(leaf));
    }
    QCollator collator;
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    return nodesOf(top, rootId, collator);
}

std::string remoteOf(std::string_view name) {
    const auto slash = name.find('/');
    return slash == std::string_view::npos ? std::string("origin") : std::string(name.substr(0, slash));
}

std::vector<RemoteGroup> groupByRemote(const std::vector<BranchEntry>& remoteBranches) {
    std::vector<RemoteGroup> groups;
    for (const BranchEntry& branch : remoteBranches) {
        std::string remote = remoteOf(branch.name);
        auto group = std::ranges::find(groups, remote, &RemoteGroup::remote);
        if (group == groups.end())
            group = groups.insert(groups.end(), RemoteGroup{std::move(remote), {}});
        group->branches.push_back(branch);
    }
    return groups;
}

std::vector<RemoteTreeGroup> buildRemoteTrees(const std::vector<RemoteGroup>& groups) {
    std::vector<RemoteTreeGroup> trees;
    trees.reserve(groups.size());
    for (const RemoteGroup& group : groups)
        trees.push_back({group.remote, buildBranchTree(group.branches, group.remote, group.remote + "/")});
    return trees;
}

} // namespace orvel
