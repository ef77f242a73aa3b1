#include "content/InitViewModel.h"

#include "content/LocalPath.h"
#include "core/commands/ArgumentGuard.h"
#include "core/service/GitServiceProtocol.h"
#include "core/support/Log.h"
#include "settings/LocalizationManager.h"

#include <QFile>

namespace orvel {

InitViewModel::InitViewModel(std::shared_ptr<GitServiceProtocol> service, QObject* parent)
    : QObject(parent), service_(std::move(service)) {}

void InitViewModel::setDirectoryPath(const QString& path) {
    directoryPath_ = path;
    emit formChanged();
}

void InitViewModel::setInitialBranch(const QString& name) {
    initialBranch_ = name;
    emit formChanged();
}

void InitViewModel::fail(const QString& message) {
    qCDebug(lcRepo, "op=repo.init.failed reason=%s", redactForLog(message.toStdString()).c_str());
    errorMessage_ = message;
    isCreating_ = false;
    emit stateChanged();
}

QCoro::Task<void> InitViewModel::create() {
    if (!canCreate())
        co_return;
    const std::optional<QString> directory = absoluteLocalPath(directoryPath_);
    if (!directory) {
        errorMessage_ = localized("Choose a full path for the directory, such as ~/Projects/name.");
        emit stateChanged();
        co_return;
    }
    std::optional<std::string> branch;
    if (const QString name = initialBranch_.trimmed(); !name.isEmpty())
        branch = name.toStdString();
    auto ticket = loads_.begin(this);
    isCreating_ = true;
    errorMessage_.reset();
    emit stateChanged();
    std::string path;
    try {
        if (branch)
            refuseOptionLike(*branch, "Branch name");
        auto task =
            service_->initRepository(QFile::encodeName(*directory).toStdString(), branch, ticket.stopToken());
        path = (co_await std::move(task)).path;
    } catch (const std::exception& error) {
        if (ticket.isCurrent())
            fail(QString::fromUtf8(error.what()));
        co_return;
    }
    if (!ticket.isCurrent())
        co_return;
    qCDebug(lcRepo, "op=repo.initialized");
    isCreating_ = false;
    emit stateChanged();
    emit finished(QFile::decodeName(QByteArray::fromStdString(path)));
}

} // namespace orvel
