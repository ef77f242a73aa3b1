#include "sidebar/ManageRemotesViewModel.h"

#include "core/service/GitServiceProtocol.h"
#include "core/support/Log.h"
#include "settings/LocalizationManager.h"
#include "notices/ToastManager.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPointer>

#include <algorithm>

namespace orvel {

ManageRemotesViewModel::ManageRemotesViewModel(RepoEntry repo, std::shared_ptr<GitServiceProtocol> service,
                                               ToastManager& toasts, QObject* parent)
    : QObject(parent), repo_(std::move(repo)), service_(std::move(service)), toasts_(toasts) {}

QCoro::Task<void> ManageRemotesViewModel::load() {
    auto ticket = loads_.begin(this);
    isLoading_ = true;
    loadError_.reset();
    emit stateChanged();
    try {
        auto read = service_->listRemotes(repo_, ticket.stopToken());
        std::vector<RemoteEntry> remotes = co_await std::move(read);
        if (!ticket.isCurrent())
            co_return;
        remotes_ = std::move(remotes);
    } catch (const std::exception& error) {
        if (!ticket.isCurrent())
            co_return;
        qCDebug(lcUi, "op=remotes.load reason=%s", redactForLog(error.what()).c_str());
        loadError_ = QString::fromUtf8(error.what());
    }
    isLoading_ = false;
    emit stateChanged();
}

QCoro::Task<bool> ManageRemotesViewModel::addRemote(QString name, QString url) {
    const std::string remote = name.trimmed().toStdString();
    if (std::ranges::find(remotes_, remote, &RemoteEntry::name) != remotes_.end()) {
        addError_ = localized("A remote named '%1' already exists.", remote);
        emit stateChanged();
        co_return false;
    }
    QPointer<ManageRemotesViewModel> self(this);
    isAddingRemote_ = true;
    addError_.reset();
    emit stateChanged();
    std::optional<QString> failure;
    try {
        co_await service_->addRemote(repo_, remote, url.toStdString());
        qCDebug(lcRefs, "op=remote.added");
    } catch (const std::exception& error) {
        qCDebug(lcRefs, "op=remote.add reason=%s", redactForLog(error.what()).c_str());
        failure = QString::fromUtf8(error.what());
    }
    if (!self)
        co_return !failure;
    self->isAddingRemote_ = false;
    self->addError_ = failure;
    emit self->stateChanged();
    if (failure)
        co_return false;
    emit self->remotesChanged();
    self->load();
    co_return true;
}

QCoro::Task<void> ManageRemotesViewModel::removeRemote(std::string name) {
    QPointer<ManageRemotesViewModel> self(this);
    ToastManager& toasts = toasts_;
    try {
        co_await service_->removeRemote(repo_, name);
        qCDebug(lcRefs, "op=remote.removed");
    } catch (const std::exception& error) {
        qCDebug(lcRefs, "op=remote.remove reason=%s", redactForLog(error.what()).c_str());
        toasts.show(localized("Remove remote failed: %1", QString::fromUtf8(error.what())), ToastType::error);
        co_return;
    }
    if (!self)
        co_return;
    emit self->remotesChanged();
    self->load();
}

void ManageRemotesViewModel::copyURL(const std::string& url) {
    const QString text = QString::fromUtf8(url.data(), static_cast<qsizetype>(url.size()));
    QClipboard* clipboard = QGuiApplication::clipboard();
    if (clipboard)
        clipboard->setText(text);
    // A clipboard that nobody serves keeps its old content.
    if (!clipboard || clipboard->text() != text)
        toasts_.show(localized("Could not copy to clipboard"), ToastType::error);
}

} // namespace orvel
