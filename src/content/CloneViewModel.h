// The clone dialog's state: the URL and destination, the running clone (which Cancel abandons),
// its error, and the first commit and push offered when the clone turns out to be empty.
#pragma once

#include "content/EmptyRepositoryStart.h"
#include "core/records/RepoEntry.h"
#include "core/support/LoadGeneration.h"

#include <QObject>
#include <QString>

#include <QCoro/QCoroTask>

#include <memory>
#include <optional>

namespace orvel {

class GitServiceProtocol;
class UserDefaults;

class CloneViewModel final : public QObject {
    Q_OBJECT

  public:
    CloneViewModel(std::shared_ptr<GitServiceProtocol> service, std::shared_ptr<UserDefaults> defaults,
                   QObject* parent = nullptr);

    // The name of the folder a clone of `url` makes: the URL's last path component without ".git",
    // for "host:path" addresses too, or empty when the URL names none.
    static QString repositoryName(const QString& url);
    // The folder a clone of `url` lands in below `folder`: the folder joined with the repository's
    // name, or the folder itself when the URL names none.
    static QString cloneDestination(const QString& url, const QString& folder);

    const QString& urlText() const { return urlText_; }
    const QString& destinationPath() const { return destinationPath_; }
    // Until the user types a destination of their own, the destination follows the URL: the
    // repository's name in the home folder, or in the folder last chosen with Browse.
    void setUrlText(const QString& text);
    // A destination the user typed; URL edits leave it alone unless it is emptied.
    void setDestinationPath(const QString& path);
    // What the Browse panel chose: the destination becomes the folder joined with the URL's name,
    // and follows the URL again.
    void chooseDestinationFolder(const QString& folder);

    bool isCloning() const { return isCloning_; }
    const std::optional<QString>& errorMessage() const { return errorMessage_; }
    const std::optional<RepoEntry>& emptyRepository() const { return emptyRepository_; }
    // Both fields filled and no clone running.
    bool canClone() const;

    QCoro::Task<void> clone();
    // Abandons a running clone: git runs on to its end, but nothing here hears of it.
    void cancel();

    // The file and message the empty-repository prompt names.
    EmptyRepositoryStart emptyRepositoryStart() const;
    QCoro::Task<void> initializeEmptyRepository();
    // "Cancel" on the prompt: the clone stays as it is.
    void keepEmptyRepository();

  signals:
    void formChanged();
    // isCloning, errorMessage or the empty repository changed.
    void stateChanged();
    void emptyRepositoryFound();
    // The repository is ready to be opened.
    void finished(const QString& path);

  private:
    void fail(const char* operation, const std::exception& error);

    std::shared_ptr<GitServiceProtocol> service_;
    std::shared_ptr<UserDefaults> defaults_;
    QString urlText_;
    QString destinationPath_;
    // Where a destination that follows the URL is made.
    QString destinationFolder_;
    bool destinationTyped_ = false;
    bool isCloning_ = false;
    std::optional<QString> errorMessage_;
    std::optional<RepoEntry> emptyRepository_;
    LoadGeneration loads_;
};

} // namespace orvel
