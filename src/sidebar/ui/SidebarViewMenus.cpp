// The sidebar rows' context menus and the sheets they open.
#include "content/ui/CreateBranchSheet.h"
#include "settings/LocalizationManager.h"
#include "sidebar/SidebarTreeModel.h"
#include "sidebar/SidebarViewModel.h"
#include "sidebar/ui/CreateTagSheet.h"
#include "sidebar/ui/ManageRemotesSheet.h"
#include "sidebar/ui/SidebarView.h"
#include "sidebar/ui/TagDetailSheet.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputDialog>
#include <QMenu>
#include <QTreeView>

#include <set>

namespace orvel {

namespace {

QString decoded(const std::string& bytes) {
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

void copyName(const std::string& name) {
    if (QClipboard* clipboard = QGuiApplication::clipboard())
        clipboard->setText(decoded(name));
}

} // namespace

void SidebarView::showMenu(const QPoint& position) {
    QModelIndex index = tree_->indexAt(position);
    if (!index.isValid())
        index = tree_->currentIndex();
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setObjectName(QStringLiteral("sidebar.context-menu"));
    if (const BranchEntry* branch = model_->branch(index))
        addBranchActions(*menu, *branch);
    else if (const TagEntry* tag = model_->tag(index))
        addTagActions(*menu, *tag);
    else if (const StashEntry* stash = model_->stash(index))
        addStashActions(*menu, *stash);
    else if (model_->kind(index) == SidebarTreeModel::Kind::remote ||
             index == model_->sectionIndex(SidebarTreeModel::Section::remote))
        menu->addAction(localized("Manage Remotes…"), this, &SidebarView::manageRemotes);
    if (menu->isEmpty()) {
        delete menu;
        return;
    }
    const QRect row = tree_->visualRect(index);
    menu->popup(
        tree_->viewport()->mapToGlobal(index.isValid() && !row.contains(position) ? row.center() : position));
}

void SidebarView::addBranchActions(QMenu& menu, const BranchEntry& branch) {
    const BranchEntry* current = sidebar_.currentBranch();
    const bool isCurrent = !branch.isRemote && branch.isCurrent;
    const QString name = decoded(branch.name);
    const QString head = current ? decoded(current->name) : QStringLiteral("HEAD");

    QAction* checkout = menu.addAction(localized("Checkout"), this, [this, branch] {
        if (branch.isRemote)
            sidebar_.checkoutRemoteBranch(branch);
        else
            sidebar_.checkoutBranch(branch.name);
    });
    checkout->setEnabled(!isCurrent);
    menu.addSeparator();
    if (!isCurrent) {
        menu.addAction(localized("Merge '%1' into '%2'", name, head), this,
                       [this, branch] { sidebar_.requestMerge(branch); });
        menu.addAction(localized("Fast-forward '%1' to '%2'", head, name), this,
                       [this, branch] { sidebar_.fastForward(branch); });
        menu.addAction(localized("Rebase '%1' onto '%2'", head, name), this,
                       [this, branch] { sidebar_.rebaseOnto(branch); });
        menu.addAction(localized("Interactive Rebase '%1' onto '%2'…", head, name), this,
                       [this, branch] { sidebar_.loadRebaseTodo(branch); });
    }
    if (isCurrent && branch.upstream)
        menu.addAction(localized("Pull"), this, [this, branch] { sidebar_.pullBranch(branch); });
    if (!branch.isRemote) {
        const QString remote = branch.upstream && !branch.upstream->remoteName.empty()
                                   ? decoded(branch.upstream->remoteName)
                                   : QStringLiteral("origin");
        menu.addAction(localized("Push to %1", remote), this,
                       [this, branch] { sidebar_.pushBranch(branch); });
    }
    menu.addSeparator();
    menu.addAction(localized("Create Branch from '%1'…", name), this,
                   [this, branch] { createBranchAt(branch); });
    menu.addAction(localized("Create Tag at '%1'…", name), this,
                   [this, hash = branch.hash] { createTagAt(hash); });
    menu.addSeparator();
    if (branch.isRemote) {
        menu.addAction(localized("Delete on Remote…"), this,
                       [this, branch] { sidebar_.requestRemoteDelete(branch); });
    } else {
        menu.addAction(localized("Rename…"), this, [this, branch] { renameBranch(branch); });
        menu.addAction(localized("Delete"), this, [this, branch] { sidebar_.deleteBranch(branch); })
            ->setEnabled(!isCurrent);
    }
    menu.addAction(localized("Copy Name"), this, [name = branch.name] { copyName(name); });
}

void SidebarView::addTagActions(QMenu& menu, const TagEntry& tag) {
    menu.addAction(localized("Checkout"), this, [this, tag] { sidebar_.checkoutTag(tag); });
    menu.addAction(localized("Show Detail"), this, [this, tag] { showTagDetail(tag); });
    menu.addSeparator();
    // The remotes the sidebar knows of through their branches; a repository with none pushes to origin.
    std::set<std::string> remotes;
    for (const RemoteGroup& group : sidebar_.remoteGroupedTree())
        remotes.insert(group.remote);
    if (remotes.empty())
        remotes.insert("origin");
    for (const std::string& remote : remotes)
        menu.addAction(localized("Push to %1", remote), this,
                       [this, tag, remote] { sidebar_.pushTag(tag, remote); });
    menu.addSeparator();
    menu.addAction(localized("Delete Tag…"), this, [this, tag] { sidebar_.requestDeleteTag(tag); });
    menu.addAction(localized("Copy Name"), this, [name = tag.name] { copyName(name); });
}

void SidebarView::addStashActions(QMenu& menu, const StashEntry& stash) {
    menu.addAction(localized("Apply"), this, [this, stash] { sidebar_.applyStash(stash); });
    menu.addAction(localized("Pop"), this, [this, stash] { sidebar_.applyAndDropStash(stash); });
    menu.addSeparator();
    menu.addAction(localized("Drop…"), this, [this, stash] { sidebar_.requestDropStash(stash); });
}

void SidebarView::deleteSelected() {
    const QModelIndex index = tree_->currentIndex();
    if (const BranchEntry* branch = model_->branch(index)) {
        if (branch->isRemote)
            sidebar_.requestRemoteDelete(*branch);
        else if (!branch->isCurrent)
            sidebar_.deleteBranch(*branch);
    } else if (const TagEntry* tag = model_->tag(index)) {
        sidebar_.requestDeleteTag(*tag);
    } else if (const StashEntry* stash = model_->stash(index)) {
        sidebar_.requestDropStash(*stash);
    }
}

void SidebarView::renameBranch(const BranchEntry& branch) {
    auto* dialog = new QInputDialog(this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowModality(Qt::WindowModal);
    dialog->setObjectName(QStringLiteral("rename-branch-sheet"));
    dialog->setWindowTitle(localized("Rename Branch"));
    dialog->setLabelText(localized("New name for '%1':", branch.name));
    dialog->setOkButtonText(localized("Rename"));
    dialog->setCancelButtonText(localized("Cancel"));
    dialog->setTextValue(decoded(branch.name));
    connect(dialog, &QInputDialog::textValueSelected, this, [this, branch](const QString& name) {
        if (name != decoded(branch.name))
            sidebar_.renameBranch(branch, name);
    });
    dialog->open();
}

void SidebarView::createBranchAt(const BranchEntry& branch) {
    if (!sidebar_.repo())
        return;
    auto* sheet = new CreateBranchSheet(decoded(branch.name), false, this);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    connect(sheet, &CreateBranchSheet::createRequested, &sidebar_,
            [this, startPoint = branch.name](const QString& name, bool checkout) {
                sidebar_.createBranch(name.toStdString(), startPoint, checkout);
            });
    sheet->open();
}

void SidebarView::createTagAt(const std::string& hash) {
    if (!sidebar_.repo())
        return;
    auto* sheet = new CreateTagSheet(*sidebar_.repo(), hash, sidebar_.service(), this);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    connect(sheet, &CreateTagSheet::createRequested, &sidebar_,
            [this](const QString& name, const std::optional<QString>& message, const std::string& commit) {
                sidebar_.createTag(name.toStdString(),
                                   message ? std::optional(message->toStdString()) : std::nullopt, commit);
            });
    sheet->open();
}

void SidebarView::showTagDetail(const TagEntry& tag) {
    QPointer<SidebarView> self(this);
    [](QPointer<SidebarView> view, QString name, QCoro::Task<QString> reading) -> QCoro::Task<void> {
        const QString detail = co_await std::move(reading);
        if (!view || detail.isEmpty())
            co_return;
        auto* sheet = new TagDetailSheet(name, detail, view);
        sheet->setAttribute(Qt::WA_DeleteOnClose);
        sheet->open();
    }(self, decoded(tag.name), sidebar_.tagDetail(tag));
}

void SidebarView::manageRemotes() {
    if (!sidebar_.repo())
        return;
    auto* sheet = new ManageRemotesSheet(*sidebar_.repo(), sidebar_.service(), sidebar_.toasts(), this);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    connect(sheet, &ManageRemotesSheet::remotesChanged, &sidebar_, &SidebarViewModel::retry);
    sheet->open();
}

} // namespace orvel
