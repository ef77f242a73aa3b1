#include "sidebar/ui/SidebarView.h"

#include "settings/LocalizationManager.h"
#include "settings/UndoSentence.h"
#include "settings/ThemeEngine.h"
#include "sidebar/SidebarTreeModel.h"
#include "sidebar/SidebarViewModel.h"
#include "sidebar/ui/SidebarRowDelegate.h"
#include "widgets/Icons.h"
#include "widgets/OAlert.h"
#include "widgets/OEmptyState.h"
#include "widgets/OInlineBanner.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>

namespace orvel {

namespace {

using Kind = SidebarTreeModel::Kind;

QToolButton* filterToggle(const char* objectName, const QString& text, QWidget* parent) {
    auto* button = new QToolButton(parent);
    button->setObjectName(QString::fromLatin1(objectName));
    button->setCheckable(true);
    button->setAutoRaise(true);
    button->setText(text);
    return button;
}

} // namespace

SidebarView::SidebarView(SidebarViewModel& sidebar, UserDefaults& defaults, QWidget* parent)
    : QWidget(parent), sidebar_(sidebar), model_(new SidebarTreeModel(sidebar, this)),
      filterField_(new QLineEdit(this)),
      wordToggle_(filterToggle("sidebar.filter.word-match", QStringLiteral("W"), this)),
      regexToggle_(filterToggle("sidebar.filter.regex", QStringLiteral(".*"), this)),
      remotesButton_(new QToolButton(this)), errorBanner_(new OInlineBanner(this)),
      pages_(new QStackedWidget(this)), tree_(new QTreeView(pages_)),
      state_(new OEmptyState(QStringLiteral("vcs-branch"), {}, {}, pages_)), sections_(defaults) {
    setObjectName(QStringLiteral("sidebar"));
    setMinimumWidth(200);
    filterField_->setObjectName(QStringLiteral("sidebar.filter-field"));
    filterField_->setClearButtonEnabled(true);
    filterField_->addAction(themedIcon(QStringLiteral("edit-find")), QLineEdit::LeadingPosition);
    remotesButton_->setObjectName(QStringLiteral("sidebar.manage-remotes"));
    remotesButton_->setIcon(themedIcon(QStringLiteral("vcs-remote")));
    remotesButton_->setAutoRaise(true);
    errorBanner_->setObjectName(QStringLiteral("sidebar.load-error"));
    errorBanner_->hide();

    tree_->setObjectName(QStringLiteral("sidebar.tree"));
    tree_->setModel(model_);
    tree_->setItemDelegate(new SidebarRowDelegate(tree_));
    tree_->setHeaderHidden(true);
    tree_->setUniformRowHeights(true);
    tree_->setAttribute(Qt::WA_Hover);
    tree_->setFrameShape(QFrame::NoFrame);
    tree_->setIndentation(14);
    tree_->setContextMenuPolicy(Qt::CustomContextMenu);
    tree_->setSelectionMode(QAbstractItemView::SingleSelection);
    tree_->installEventFilter(this);
    pages_->addWidget(tree_);
    pages_->addWidget(state_);

    auto* filterRow = new QHBoxLayout;
    filterRow->setContentsMargins(6, 6, 6, 0);
    filterRow->setSpacing(2);
    filterRow->addWidget(filterField_, 1);
    filterRow->addWidget(wordToggle_);
    filterRow->addWidget(regexToggle_);
    filterRow->addWidget(remotesButton_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addLayout(filterRow);
    layout->addWidget(errorBanner_);
    layout->addWidget(pages_, 1);

    // The model's state flows in; the user's actions flow out to the model.
    SidebarFilterViewModel& filter = sidebar_.filter();
    connect(filterField_, &QLineEdit::textChanged, &filter, &SidebarFilterViewModel::setSearchQuery);
    connect(wordToggle_, &QToolButton::toggled, &filter, &SidebarFilterViewModel::setWordMatch);
    connect(regexToggle_, &QToolButton::toggled, &filter, &SidebarFilterViewModel::setRegexSearch);
    connect(remotesButton_, &QToolButton::clicked, this, &SidebarView::manageRemotes);
    connect(&sidebar_, &SidebarViewModel::branchesChanged, this, &SidebarView::rebuild);
    connect(&sidebar_, &SidebarViewModel::detailsChanged, this, &SidebarView::rebuild);
    connect(&filter, &SidebarFilterViewModel::resultsChanged, this, &SidebarView::rebuild);
    connect(&sidebar_, &SidebarViewModel::pendingChanged, this, &SidebarView::showPendingQuestion);
    connect(&sidebar_, &SidebarViewModel::pendingMergeForecastChanged, this, [this] {
        if (question_ && sidebar_.pendingMerge())
            question_->setInformativeText(sidebar_.pendingMergeForecast());
    });
    connect(tree_, &QTreeView::clicked, this, &SidebarView::select);
    connect(tree_, &QTreeView::activated, this, &SidebarView::select);
    connect(tree_, &QWidget::customContextMenuRequested, this, &SidebarView::showMenu);
    connect(tree_, &QTreeView::expanded, this,
            [this](const QModelIndex& index) { rememberExpansion(index, true); });
    connect(tree_, &QTreeView::collapsed, this,
            [this](const QModelIndex& index) { rememberExpansion(index, false); });
    connect(model_, &QAbstractItemModel::modelReset, this, [this] { restoreExpansion({}); });
    connect(&ThemeEngine::shared(), &ThemeEngine::themeChanged, tree_->viewport(),
            qOverload<>(&QWidget::update));

    restoreExpansion({});
    retranslate();
}

void SidebarView::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    else if (event->type() == QEvent::PaletteChange)
        tree_->viewport()->update();
}

bool SidebarView::eventFilter(QObject* watched, QEvent* event) {
    if (watched == tree_ && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Delete) {
        deleteSelected();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void SidebarView::retranslate() {
    filterField_->setPlaceholderText(localized("Filter"));
    filterField_->setAccessibleName(localized("Filter branches, tags and stashes"));
    wordToggle_->setToolTip(localized("Whole word match: query must appear as a complete word"));
    wordToggle_->setAccessibleName(localized("Whole word match"));
    regexToggle_->setToolTip(localized("Regular expression: use patterns like feature/.* or ^main$"));
    regexToggle_->setAccessibleName(localized("Regular expression"));
    remotesButton_->setToolTip(localized("Manage Remotes…"));
    remotesButton_->setAccessibleName(localized("Manage Remotes…"));
    tree_->setAccessibleName(localized("Branches, tags and stashes"));
    // Section titles and placeholders are looked up as they are painted.
    tree_->viewport()->update();
    showState();
}

void SidebarView::rebuild() {
    model_->rebuild();
    showState();
}

void SidebarView::showState() {
    const auto& error = sidebar_.loadError();
    errorBanner_->setVisible(error.has_value());
    if (error) {
        errorBanner_->setMessage(OInlineBanner::Kind::error, *error);
        errorBanner_->removeButtons();
        errorBanner_->addButton(localized("Retry"), [this] { sidebar_.retry(); })
            ->setObjectName(QStringLiteral("sidebar-error-retry"));
    }
    const bool noBranches = sidebar_.localBranches().empty() && sidebar_.remoteBranches().empty();
    QWidget* page = tree_;
    if (noBranches && sidebar_.isLoading()) {
        state_->setTitle(localized("Loading branches…"));
        state_->setMessage({});
        page = state_;
    } else if (noBranches && sidebar_.repo() && !error) {
        state_->setTitle(localized("Empty repository"));
        state_->setMessage(localized("Make your first commit to get started."));
        page = state_;
    } else if (sidebar_.filter().isActive() && !sidebar_.filter().isFiltering() &&
               sidebar_.filter().results().empty()) {
        state_->setTitle(localized("No matches"));
        state_->setMessage(localized("No branches, tags, or stashes match your query."));
        page = state_;
    }
    pages_->setCurrentWidget(page);
}

void SidebarView::rememberExpansion(const QModelIndex& index, bool expanded) {
    if (restoringExpansion_)
        return;
    const QString id = index.data(SidebarTreeModel::IdRole).toString();
    if (model_->kind(index) == Kind::section) {
        if (sidebar_.repo())
            sections_.setExpanded(sidebar_.repo()->path, id, expanded);
        return;
    }
    if (expanded)
        expandedIds_.insert(id);
    else
        expandedIds_.remove(id);
}

// While a query is in force every section and folder opens, so that each find shows; the user's
// own choice comes back when the query is cleared.
void SidebarView::restoreExpansion(const QModelIndex& parent) {
    const bool outermost = !parent.isValid();
    if (outermost)
        restoringExpansion_ = true;
    const bool openAll = sidebar_.filter().isActive();
    const std::string repoPath = sidebar_.repo() ? sidebar_.repo()->path : std::string();
    for (int row = 0, rows = model_->rowCount(parent); row < rows; ++row) {
        const QModelIndex index = model_->index(row, 0, parent);
        if (!model_->hasChildren(index))
            continue;
        const QString id = index.data(SidebarTreeModel::IdRole).toString();
        const bool open = model_->kind(index) == Kind::section
                              ? sections_.isExpanded(repoPath, id, model_->rowCount(index))
                              : expandedIds_.contains(id);
        if (openAll || open) {
            tree_->expand(index);
            restoreExpansion(index);
        }
    }
    if (outermost)
        restoringExpansion_ = false;
}

void SidebarView::select(const QModelIndex& index) {
    if (const BranchEntry* branch = model_->branch(index)) {
        sidebar_.selectBranch(*branch);
    } else if (const TagEntry* tag = model_->tag(index)) {
        // The graph finds a tag's commit as it finds a branch's.
        BranchEntry target;
        target.name = "tags/" + tag->name;
        target.fullRefName = "refs/tags/" + tag->name;
        target.hash = tag->targetHash.value_or(tag->hash);
        sidebar_.selectBranch(target);
    } else if (const StashEntry* stash = model_->stash(index)) {
        // A stash is a commit of the history too (`--all` lists refs/stash).
        BranchEntry target;
        target.name = "stash@{" + std::to_string(stash->index) + "}";
        target.hash = stash->hash;
        sidebar_.selectBranch(target);
    }
}

void SidebarView::showPendingQuestion() {
    if (question_)
        return;
    const auto answer = [this](int chosen, auto confirmed) {
        question_ = nullptr;
        if (chosen == 1)
            (sidebar_.*confirmed)();
        else
            sidebar_.cancelPending();
    };
    const auto ask = [&](const QString& title, const QString& text, const QString& action, auto confirmed) {
        question_ = showAlert(
            this, QMessageBox::Warning, title, text,
            {{localized("Cancel"), QMessageBox::RejectRole}, {action, QMessageBox::DestructiveRole}}, 0,
            [answer, confirmed](int chosen) { answer(chosen, confirmed); });
    };
    if (const auto& branch = sidebar_.pendingForceDeleteBranch())
        ask(localized("Branch '%1' is not fully merged", branch->name),
            undoableText(localized("This branch has commits that have not been merged."),
                         localized("This branch has commits that have not been merged. Force deleting will "
                                   "permanently discard those commits once the reflog expires. This cannot be "
                                   "undone.")),
            localized("Force Delete"), &SidebarViewModel::forceDeleteBranch);
    else if (const auto& remote = sidebar_.pendingRemoteDeleteBranch())
        ask(localized("Delete remote branch '%1'?", remote->name),
            undoableText(localized("This will delete the branch on the remote."),
                         localized("This will delete the branch on the remote. This action cannot be undone locally.")),
            localized("Delete on Remote"), &SidebarViewModel::deleteRemoteBranch);
    else if (const auto& tag = sidebar_.pendingDeleteTag())
        ask(localized("Delete tag '%1'?", tag->name),
            localized(
                "Tags do not have a reflog; this action cannot be undone locally. The remote tag (if any) is "
                "not affected."),
            localized("Delete Tag"), &SidebarViewModel::deleteTag);
    else if (const auto& merge = sidebar_.pendingMerge())
        ask(localized("Merge '%1'?", merge->name), sidebar_.pendingMergeForecast(), localized("Merge"),
            &SidebarViewModel::confirmMerge);
    else if (sidebar_.pendingDropStash())
        ask(localized("Drop stash?"), undoableText({}, localized("Stash drops cannot be undone.")), localized("Drop"),
            &SidebarViewModel::dropStash);
    if (question_)
        question_->setObjectName(QStringLiteral("sidebar.confirmation"));
}

} // namespace orvel
