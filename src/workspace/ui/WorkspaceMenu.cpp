#include "workspace/ui/WorkspaceMenu.h"

#include "settings/LocalizationManager.h"
#include "settings/SettingsPageModels.h"
#include "settings/SettingsTabRoute.h"
#include "settings/ui/AppearanceSettingsTab.h"
#include "settings/ui/GitSettingsTab.h"
#include "settings/ui/IdentityMismatchAlert.h"
#include "settings/ui/SigningSettingsTab.h"
#include "widgets/BoundShortcut.h"
#include "workspace/AppViewModel.h"
#include "workspace/GitToolbarViewModel.h"
#include "workspace/WorkspaceCommands.h"
#include "workspace/ui/SettingsDialog.h"
#include "workspace/ui/WorkspaceCommandPrompts.h"

#include <QEvent>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>

namespace orvel {

namespace {

// Whether the settings window may close after Apply: not while it asks about a signing key whose
// address is not git's user.email. The window can go while git's address is read, and with it the
// function it keeps for after Apply: this coroutine holds what it needs in its own frame.
QCoro::Task<bool> mayCloseAfterIdentityCheck(QPointer<SettingsDialog> window,
                                             QPointer<SigningSettingsViewModel> signing) {
    const std::optional<IdentityMismatch> mismatch = co_await signing->checkIdentityMismatch();
    if (!mismatch || !window || !signing)
        co_return true;
    showIdentityMismatchAlert(window, *signing, *mismatch, [window] {
        if (window)
            window->accept();
    });
    co_return false;
}

} // namespace

WorkspaceMenu::WorkspaceMenu(AppViewModel& app, GitToolbarViewModel& toolbar,
                             GeneralSettingsViewModel& generalSettings, QMenu& menu, QWidget* window)
    : QObject(&menu), app_(app), generalSettings_(generalSettings), menu_(menu), window_(window),
      commands_(new WorkspaceCommands(app, QStringLiteral("menu"), this)),
      prompts_(new WorkspaceCommandPrompts(app, *commands_, window)) {
    menu_.addSeparator();
    fetch_ = menu_.addAction(QString(), commands_, [this] { commands_->fetch(); });
    pull_ = menu_.addAction(QString(), &toolbar, [&toolbar] { toolbar.pull(PullStrategy::merge); });
    push_ = menu_.addAction(QString(), commands_, [this] { commands_->push(); });
    forcePush_ = menu_.addAction(QString(), prompts_, &WorkspaceCommandPrompts::askForcePush);
    menu_.addSeparator();
    newBranch_ = menu_.addAction(QString(), prompts_, &WorkspaceCommandPrompts::askNewBranch);
    newTag_ = menu_.addAction(QString(), prompts_, &WorkspaceCommandPrompts::askNewTag);
    stash_ = menu_.addAction(QString(), prompts_, &WorkspaceCommandPrompts::askStashName);
    popStash_ = menu_.addAction(QString(), commands_, [this] { commands_->popStash(); });
    menu_.addSeparator();
    settingsAction_ = menu_.addAction(QString(), this, &WorkspaceMenu::openSettings);
    settingsAction_->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Comma));
    settingsAction_->setMenuRole(QAction::PreferencesRole);

    const std::tuple<QAction*, const char*, std::optional<KeyBindingID>> identities[] = {
        {fetch_, "menu.fetch", KeyBindingID::fetch},
        {pull_, "menu.pull", KeyBindingID::pull},
        {push_, "menu.push", KeyBindingID::push},
        {forcePush_, "menu.force-push", std::nullopt},
        {newBranch_, "menu.new-branch", KeyBindingID::newBranch},
        {newTag_, "menu.new-tag", KeyBindingID::newTag},
        {stash_, "menu.stash", KeyBindingID::stashChanges},
        {popStash_, "menu.pop-stash", std::nullopt},
        {settingsAction_, "menu.settings", std::nullopt}};
    for (const auto& [action, identifier, binding] : identities) {
        action->setObjectName(QString::fromLatin1(identifier));
        if (binding)
            bindShortcut(*action, *binding);
    }
    menu_.installEventFilter(this);
    connect(&SettingsTabRoute::shared(), &SettingsTabRoute::requested, this, &WorkspaceMenu::openSettings);
    connect(&app_, &AppViewModel::activeTabChanged, this, &WorkspaceMenu::showActiveTab);
    retranslate();
    showActiveTab();
}

bool WorkspaceMenu::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &menu_ && event->type() == QEvent::LanguageChange)
        retranslate();
    return QObject::eventFilter(watched, event);
}

void WorkspaceMenu::retranslate() {
    fetch_->setText(localized("Fetch"));
    pull_->setText(localized("Pull"));
    push_->setText(localized("Push"));
    forcePush_->setText(localized("Force Push..."));
    newBranch_->setText(localized("New Branch…"));
    newTag_->setText(localized("New Tag…"));
    stash_->setText(localized("Stash Changes…"));
    popStash_->setText(localized("Pop Stash"));
    settingsAction_->setText(localized("Settings…"));
}

void WorkspaceMenu::showActiveTab() {
    WorkspaceTabState* tab = app_.activeTab();
    for (QAction* action : {fetch_, pull_, push_, forcePush_, newBranch_, newTag_, stash_})
        action->setEnabled(tab != nullptr);
    disconnect(stashesConnection_);
    if (tab)
        stashesConnection_ =
            connect(tab, &WorkspaceTabState::stashesChanged, this, &WorkspaceMenu::showStashes);
    showStashes();
}

void WorkspaceMenu::showStashes() {
    const WorkspaceTabState* tab = app_.activeTab();
    popStash_->setEnabled(tab && tab->hasStashes());
}

void WorkspaceMenu::showSettingsPages(SettingsDialog& dialog, SettingsPageModels& pages) {
    dialog.setPage(SettingsTab::appearance, new AppearanceSettingsTab(pages.appearance), &pages.appearance);
    dialog.setPage(SettingsTab::git, new GitSettingsTab(pages.git), &pages.git);
    dialog.setPage(SettingsTab::signing, new SigningSettingsTab(pages.signing), &pages.signing);
    // A signing key whose address is not git's user.email: the window asks whether to make the
    // key's address git's; it closes once that is written, and stays open to edit by hand.
    dialog.setAfterApply([window = QPointer<SettingsDialog>(&dialog), signing = QPointer(&pages.signing)] {
        return mayCloseAfterIdentityCheck(window, signing);
    });
}

void WorkspaceMenu::openSettings() {
    if (!settings_) {
        settings_ = new SettingsDialog(app_.toastManager(), generalSettings_, window_);
        if (settingsPages_)
            showSettingsPages(*settings_, *settingsPages_);
    }
    settings_->show();
    settings_->raise();
    settings_->activateWindow();
}

} // namespace orvel
