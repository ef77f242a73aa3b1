#include "content/CloneViewModel.h"

#include "content/LocalPath.h"
#include "core/service/GitServiceProtocol.h"
#include "core/support/Log.h"
#include "settings/LocalizationManager.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

namespace orvel {

CloneViewModel::CloneViewModel(std::shared_ptr<GitServiceProtocol> service,
                               std::shared_ptr<UserDefaults> defaults, QObject* parent)
    : QObject(parent), service_(std::move(service)), defaults_(std::move(defaults)),
      destinationFolder_(QDir::homePath()) {}

QString CloneViewModel::repositoryName(const QString& url) {
    const QString trimmed = url.trimmed();
    const QUrl parsed(trimmed);
    // "git@host:owner/name.git" is no URL; its path follows the colon.
    QString path = parsed.isValid() && !parsed.scheme().isEmpty() ? parsed.path() : trimmed;
    while (path.endsWith(QLatin1Char('/')))
        path.chop(1);
    QString name = path.section(QLatin1Char('/'), -1);
    name = name.section(QLatin1Char(':'), -1);
    if (name.endsWith(QLatin1String(".git")))
        name.chop(4);
    if (name == QLatin1String(".") || name == QLatin1String(".."))
        return {};
    return name;
}

QString CloneViewModel::cloneDestination(const QString& url, const QString& folder) {
    const QString name = repositoryName(url);
    return name.isEmpty() ? folder : QDir(folder).filePath(name);
}

void CloneViewModel::setUrlText(const QString& text) {
    urlText_ = text;
    if (!destinationTyped_) {
        // A URL that names no repository yet leaves nothing to fill in.
        destinationPath_ =
            repositoryName(text).isEmpty() ? QString() : cloneDestination(text, destinationFolder_);
    }
    emit formChanged();
}

void CloneViewModel::setDestinationPath(const QString& path) {
    destinationPath_ = path;
    destinationTyped_ = !path.trimmed().isEmpty();
    emit formChanged();
}

void CloneViewModel::chooseDestinationFolder(const QString& folder) {
    destinationFolder_ = folder;
    destinationTyped_ = false;
    destinationPath_ = cloneDestination(urlText_, folder);
    emit formChanged();
}

bool CloneViewModel::canClone() const {
    return !urlText_.trimmed().isEmpty() && !destinationPath_.trimmed().isEmpty() && !isCloning_;
}

void CloneViewModel::fail(const char* operation, const std::exception& error) {
    qCDebug(lcRepo, "op=%s reason=%s", operation, redactForLog(error.what()).c_str());
    errorMessage_ = QString::fromUtf8(error.what());
    isCloning_ = false;
    emit stateChanged();
}

QCoro::Task<void> CloneViewModel::clone() {
    if (!canClone())
        co_return;
    const std::optional<QString> destination = absoluteLocalPath(destinationPath_);
    if (!destination) {
        errorMessage_ = localized("Choose a full path for the destination, such as ~/Projects/name.");
        emit stateChanged();
        co_return;
    }
    qCDebug(lcRepo, "op=repo.clone.started");
    auto ticket = loads_.begin(this);
    isCloning_ = true;
    errorMessage_.reset();
    emit stateChanged();

    std::optional<RepoEntry> cloned;
    try {
        auto task =
            service_->cloneRepository(urlText_.trimmed().toStdString(),
                                      QFile::encodeName(*destination).toStdString(), ticket.stopToken());
        cloned = co_await std::move(task);
    } catch (const std::exception& error) {
        if (ticket.isCurrent())
            fail("clone.failed", error);
        co_return;
    }
    if (!ticket.isCurrent())
        co_return;
    isCloning_ = false;
    if (!cloned->headHash) {
        emptyRepository_ = cloned;
        emit stateChanged();
        emit emptyRepositoryFound();
        co_return;
    }
    qCDebug(lcRepo, "op=repo.cloned");
    emit stateChanged();
    emit finished(QFile::decodeName(QByteArray::fromStdString(cloned->path)));
}

void CloneViewModel::cancel() {
    if (!isCloning_)
        return;
    loads_.cancel();
    isCloning_ = false;
    qCDebug(lcRepo, "op=clone.canceled");
    emit stateChanged();
}

EmptyRepositoryStart CloneViewModel::emptyRepositoryStart() const {
    const QString path =
        emptyRepository_ ? QFile::decodeName(QByteArray::fromStdString(emptyRepository_->path)) : QString();
    return EmptyRepositoryStart::fromSettings(*defaults_, QFileInfo(path).fileName());
}

QCoro::Task<void> CloneViewModel::initializeEmptyRepository() {
    if (!emptyRepository_ || isCloning_)
        co_return;
    auto ticket = loads_.begin(this);
    const RepoEntry repo = *emptyRepository_;
    isCloning_ = true;
    errorMessage_.reset();
    emit stateChanged();
    try {
        auto started = startEmptyRepository(service_, repo, emptyRepositoryStart(), ticket.stopToken());
        co_await std::move(started);
    } catch (const std::exception& error) {
        if (ticket.isCurrent())
            fail("clone.initEmpty.failed", error);
        co_return;
    }
    if (!ticket.isCurrent())
        co_return;
    isCloning_ = false;
    emptyRepository_.reset();
    emit stateChanged();
    emit finished(QFile::decodeName(QByteArray::fromStdString(repo.path)));
}

void CloneViewModel::keepEmptyRepository() {
    emptyRepository_.reset();
    emit stateChanged();
}

} // namespace orvel
