#include "workspace/AutoFetchScheduler.h"

#include "core/service/GitServiceProtocol.h"
#include "core/support/Log.h"
#include "core/support/UserDefaults.h"
#include "settings/LocalizationManager.h"
#include "workspace/AppViewModel.h"
#include "workspace/RemoteChoice.h"

#include <QPointer>
#include <QTimer>

namespace orvel {

namespace {

// Minutes; absent or not a whole number means five.
int intervalMinutes(const UserDefaults& defaults) {
    bool isInteger = false;
    const int minutes = defaults.value(QStringLiteral("autoFetchInterval")).toString().toInt(&isInteger);
    return isInteger ? minutes : 5;
}

} // namespace

AutoFetchScheduler::AutoFetchScheduler(AppViewModel& app, UserDefaults& defaults, QObject* parent)
    : QObject(parent), app_(app), defaults_(defaults),
      wakeTimer_([this](std::chrono::seconds delay, std::function<void()> wake) {
          QTimer::singleShot(delay, this, std::move(wake));
      }) {}

void AutoFetchScheduler::start() {
    stop();
    qCDebug(lcApp, "op=fetch.auto.start");
    running_ = true;
    sleep(++loop_);
}

void AutoFetchScheduler::stop() {
    if (!running_)
        return;
    running_ = false;
    ++loop_;
    qCDebug(lcApp, "op=fetch.auto.stop");
}

void AutoFetchScheduler::resume() {
    if (!backedOff_)
        return;
    qCDebug(lcApp, "op=fetch.auto.resume");
    backedOff_ = false;
    consecutiveFailures_ = 0;
    start();
    app_.toastManager().show(localized("Auto-fetch resumed."), ToastType::notice);
}

void AutoFetchScheduler::intervalChanged() {
    if (running_)
        start();
}

void AutoFetchScheduler::sleep(int loop) {
    if (loop != loop_)
        return;
    const int minutes = intervalMinutes(defaults_);
    if (minutes < 1) {
        // Switched off: a changed setting takes effect at the next look.
        wakeTimer_(std::chrono::seconds(60), [this, loop] { sleep(loop); });
        return;
    }
    const std::chrono::seconds delay = std::chrono::minutes(minutes);
    qCDebug(lcApp, "op=fetch.auto intervalSeconds=%ld", static_cast<long>(delay.count()));
    wakeTimer_(delay, [this, loop] { wake(loop); });
}

void AutoFetchScheduler::wake(int loop) {
    if (loop != loop_)
        return;
    if (!app_.activeRepository()) {
        sleep(loop);
        return;
    }
    if (consecutiveFailures_ >= maxConsecutiveFailures) {
        // The loop ends here; only resume() starts it again.
        backedOff_ = true;
        running_ = false;
        ++loop_;
        qCDebug(lcApp, "op=fetch.auto.disabled reason=consecutiveFailures count=%ld",
                static_cast<long>(consecutiveFailures_));
        app_.toastManager().show(
            localized("Auto-fetch paused after 3 failures. A successful manual fetch will resume it."),
            ToastType::warning);
        return;
    }
    fetchRound(loop);
}

QCoro::Task<void> AutoFetchScheduler::fetchRound(int loop) {
    QPointer<AutoFetchScheduler> self(this);
    const RepoEntry repo = *app_.activeRepository();
    WorkspaceTabState* tab = app_.activeTab();
    const std::string remote = chosenRemote(tab ? tab->branches() : std::vector<BranchEntry>{});
    const bool prune = defaults_.value(QStringLiteral("autoPrune"), true).toBool();
    auto service = app_.service();
    std::optional<std::string> failure;
    try {
        co_await service->fetch(repo, remote, prune);
    } catch (const std::exception& error) {
        failure = redactForLog(error.what());
    }
    if (!self)
        co_return;
    // A stopped loop still counts what its last fetch did.
    if (failure) {
        ++consecutiveFailures_;
        if (loop == loop_)
            qCDebug(lcApp, "op=fetch.auto reason=%s consecutiveFailures=%ld", failure->c_str(),
                    static_cast<long>(consecutiveFailures_));
    } else {
        consecutiveFailures_ = 0;
        qCDebug(lcApp, "op=fetch.auto status=success prune=%d", prune ? 1 : 0);
        if (WorkspaceTabState* active = app_.activeTab())
            active->reloadAfterFetch();
    }
    sleep(loop);
}

} // namespace orvel
