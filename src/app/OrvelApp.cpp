#include "app/OrvelApp.h"

#include "app/Appearance.h"
#include "app/TerminationSignals.h"
#include "core/process/SubprocessExecutor.h"
#include "core/queue/GitOpRunner.h"
#include "core/service/NativeGitConfigService.h"
#include "core/service/NativeGitService.h"
#include "core/support/Log.h"
#include "core/support/UserDefaults.h"
#include "settings/KeybindingStore.h"
#include "settings/LocalizationManager.h"
#include "settings/SettingsPageModels.h"
#include "settings/ThemeEngine.h"
#include "settings/UndoSentence.h"
#include "widgets/OrvelStyle.h"
#include "workspace/AppViewModel.h"
#include "workspace/CredentialManager.h"

#include <QApplication>
#include <QTimer>

namespace orvel {

OrvelApp::OrvelApp()
    : terminationSignals_(std::make_unique<TerminationSignals>()),
      defaults_(std::make_unique<SettingsUserDefaults>()) {
    ThemeEngine::shared().start(*defaults_);
    LocalizationManager::shared().start(*defaults_);
    KeybindingStore::shared().start(*defaults_);
    qCDebug(lcApp, "op=app.launched");
    qCDebug(lcApp, "init: starting OrvelApp");
    defaults_->setValue(QStringLiteral("NSInitialToolTipDelay"), OrvelStyle::toolTipDelay);
    QApplication::setStyle(new OrvelStyle);
    // git's questions for passwords reach the user through the script the manager writes, so
    // the manager starts before the executor that hands the script's path to git.
    credentialManager_ = std::make_unique<CredentialManager>();
    credentialManager_->start();
    executor_ = std::make_shared<SubprocessExecutor>(credentialManager_->askpassScriptPath().toStdString(),
                                                     *defaults_);
    qCDebug(lcApp, "init: SubprocessExecutor created");
    service_ = std::make_shared<NativeGitService>(executor_, std::make_shared<GitOpRunner>());
    // The undo journal's bound: 50 entries and 512 MB unless the user set other ones; 0 entries
    // turns the journal off.
    const UndoLimits undoLimits{defaults_->value(QStringLiteral("undoJournalEntries"), 50).toULongLong(),
                                defaults_->value(QStringLiteral("undoJournalMegabytes"), 512).toULongLong() << 20};
    service_->setUndoLimits(undoLimits);
    // The confirmations of the actions it keeps say that Edit > Undo brings them back.
    setUndoJournalOn(undoLimits.entries > 0);
    qCDebug(lcApp, "init: NativeGitService created");
    config_ = std::make_shared<NativeGitConfigService>(executor_);
    settingsPages_ = std::make_unique<SettingsPageModels>(executor_, config_, *defaults_);
    appViewModel_ = std::make_unique<AppViewModel>(service_, *defaults_);
    appViewModel_->setGitConfig(config_);
    std::optional<QByteArray> autotestPath;
    if (qEnvironmentVariableIsSet("ORVEL_AUTOTEST_OPEN_REPO"))
        autotestPath = qgetenv("ORVEL_AUTOTEST_OPEN_REPO");
    appViewModel_->start(std::move(autotestPath));
    QTimer::singleShot(0, [appearance = defaults_->string("appearance")] { applyAppearance(appearance); });
    qCDebug(lcApp, "init: OrvelApp ready");
}

OrvelApp::~OrvelApp() {
    // The credential listener is told to end without being waited for; an open question gets an
    // empty answer. The models go, then the service with its queue, which kills the git that still
    // runs and drops the blocks queued behind it. Their coroutines never resume: the event loop
    // has ended. The credential manager goes last and joins its listener, which has ended by then.
    credentialManager_->stop();
    appViewModel_.reset();
    service_.reset();
}

} // namespace orvel
