#include "workspace/ui/GitToolbar.h"

#include "settings/LocalizationManager.h"
#include "widgets/Icons.h"
#include "widgets/OAlert.h"
#include "workspace/AppViewModel.h"
#include "workspace/GitToolbarViewModel.h"
#include "workspace/ui/GitToolbarButton.h"
#include "workspace/ui/ToolbarStatusView.h"
#include "workspace/ui/WorkspaceCommandPrompts.h"

#include <QActionGroup>
#include <QEvent>
#include <QMenu>
#include <QPointer>

namespace orvel {

GitToolbar::GitToolbar(AppViewModel& app, QWidget* parent)
    : QToolBar(parent), model_(new GitToolbarViewModel(app, this)),
      prompts_(new WorkspaceCommandPrompts(app, model_->commands(), parent ? parent : this)),
      fetch_(addButton("toolbar.fetch", "vcs-fetch")), pull_(addButton("toolbar.pull", "vcs-pull")),
      push_(addButton("toolbar.push", "vcs-push")), branch_(addButton("toolbar.branch", "vcs-branch")),
      tag_(addButton("toolbar.new-tag", "vcs-tag")), stash_(addButton("toolbar.stash", "vcs-stash")),
      pullMenu_(new QMenu(this)), strategies_(new QActionGroup(this)), pushMenu_(new QMenu(this)),
      stashMenu_(new QMenu(this)), status_(new ToolbarStatusView(this)) {
    setObjectName(QStringLiteral("git-toolbar"));
    setMovable(false);
    setFloatable(false);
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);

    connect(fetch_, &QToolButton::clicked, model_, [this] { model_->commands().fetch(); });
    connect(pull_, &QToolButton::clicked, model_, [this] { model_->pull(model_->selectedPullStrategy()); });
    pull_->setPopupMode(QToolButton::MenuButtonPopup);
    pull_->setMenu(pullMenu_);
    for (const auto& [strategy, identifier] :
         {std::pair{PullStrategy::merge, "merge"}, std::pair{PullStrategy::rebase, "rebase"},
          std::pair{PullStrategy::fastForwardOnly, "ff-only"},
          std::pair{PullStrategy::useConfig, "use-config"}}) {
        QAction* action = pullMenu_->addAction(QString());
        action->setObjectName(QStringLiteral("toolbar.pull.") + QLatin1String(identifier));
        action->setCheckable(true);
        strategies_->addAction(action);
        strategyActions_[strategy] = action;
        // Choosing a strategy also pulls with it; the check mark remembers it for the button.
        connect(action, &QAction::triggered, model_, [this, strategy = strategy] {
            model_->setSelectedPullStrategy(strategy);
            model_->pull(strategy);
        });
    }
    connect(push_, &QToolButton::clicked, model_, [this] { model_->commands().push(); });
    push_->setPopupMode(QToolButton::MenuButtonPopup);
    push_->setMenu(pushMenu_);
    forcePush_ = pushMenu_->addAction(QString(), prompts_, &WorkspaceCommandPrompts::askForcePush);
    forcePush_->setObjectName(QStringLiteral("toolbar.push.force"));
    connect(branch_, &QToolButton::clicked, prompts_, &WorkspaceCommandPrompts::askNewBranch);
    connect(tag_, &QToolButton::clicked, prompts_, &WorkspaceCommandPrompts::askNewTag);
    stash_->setPopupMode(QToolButton::InstantPopup);
    stash_->setMenu(stashMenu_);
    stashChanges_ = stashMenu_->addAction(QString(), prompts_, &WorkspaceCommandPrompts::askStashName);
    stashChanges_->setObjectName(QStringLiteral("toolbar.stash.changes"));
    popStash_ = stashMenu_->addAction(QString(), model_, [this] { model_->commands().popStash(); });
    popStash_->setObjectName(QStringLiteral("toolbar.stash.pop"));

    auto* spacer = new QWidget(this);
    spacer->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    addWidget(spacer);
    addWidget(status_);

    connect(model_, &GitToolbarViewModel::countsChanged, this, &GitToolbar::showState);
    connect(model_, &GitToolbarViewModel::selectedPullStrategyChanged, this, &GitToolbar::showState);
    connect(model_, &GitToolbarViewModel::activeTabChanged, this, &GitToolbar::showState);
    connect(model_, &GitToolbarViewModel::stashesChanged, this, &GitToolbar::showState);
    connect(model_, &GitToolbarViewModel::pullConfirmationNeeded, this, &GitToolbar::askPull);
    connect(&app, &AppViewModel::activityChanged, this, &GitToolbar::showState);
    // Over the welcome page there is no tab to act on.
    connect(&app, &AppViewModel::modeChanged, this,
            [this, &app] { setVisible(app.mode() == AppMode::working); });
    setVisible(app.mode() == AppMode::working);
    retranslate();
}

GitToolbarButton* GitToolbar::addButton(const char* identifier, const char* icon) {
    auto* button = new GitToolbarButton(this);
    button->setObjectName(QString::fromLatin1(identifier));
    button->setIcon(themedIcon(QString::fromLatin1(icon)));
    addWidget(button);
    return button;
}

void GitToolbar::retranslate() {
    setWindowTitle(localized("Git Toolbar"));
    const std::pair<GitToolbarButton*, QString> labels[] = {
        {fetch_, localized("Fetch")},   {pull_, localized("Pull")},   {push_, localized("Push")},
        {branch_, localized("Branch")}, {tag_, localized("New Tag")}, {stash_, localized("Stash")}};
    for (const auto& [button, text] : labels) {
        button->setText(text);
        button->setAccessibleName(text);
    }
    strategyActions_[PullStrategy::merge]->setText(localized("Pull"));
    strategyActions_[PullStrategy::rebase]->setText(localized("Pull (Rebase)"));
    strategyActions_[PullStrategy::fastForwardOnly]->setText(localized("Pull (FF Only)"));
    strategyActions_[PullStrategy::useConfig]->setText(localized("Pull (Use Config)"));
    forcePush_->setText(localized("Force Push..."));
    stashChanges_->setText(localized("Stash Changes…"));
    popStash_->setText(localized("Pop Stash"));
    showState();
}

void GitToolbar::showState() {
    const AheadBehind& counts = model_->counts();
    push_->setBadge(counts.ahead);
    pull_->setBadge(counts.behind);
    push_->setToolTip(localized("Push (%1 to send)", QString::number(counts.ahead)));
    pull_->setToolTip(localized("Pull (%1 to receive)", QString::number(counts.behind)));
    strategyActions_[model_->selectedPullStrategy()]->setChecked(true);
    const bool enabled = model_->hasActiveTab();
    for (QToolButton* button : {static_cast<QToolButton*>(fetch_), static_cast<QToolButton*>(pull_),
                                static_cast<QToolButton*>(push_), static_cast<QToolButton*>(branch_),
                                static_cast<QToolButton*>(tag_), static_cast<QToolButton*>(stash_)})
        button->setEnabled(enabled);
    popStash_->setEnabled(model_->canPopStash());
    status_->setState(model_->app().activityMessage(), counts.ahead, counts.behind);
}

void GitToolbar::askPull() {
    QPointer<GitToolbarViewModel> model(model_);
    QMessageBox* box = showAlert(
        window(), QMessageBox::Question, model_->pendingPullTitle(), model_->pendingPullMessage(),
        {{localized("Cancel"), QMessageBox::RejectRole}, {localized("Pull"), QMessageBox::AcceptRole}}, 0,
        [model](int index) {
            if (model && index == 1)
                model->confirmPull();
            else if (model)
                model->cancelPull();
        });
    box->setObjectName(QStringLiteral("toolbar.pull.confirmation"));
    connect(model_, &GitToolbarViewModel::pendingPullChanged, box, [this, box] {
        if (model_->isPullPending())
            box->setInformativeText(model_->pendingPullMessage());
    });
}

void GitToolbar::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QToolBar::changeEvent(event);
}

} // namespace orvel
