#include "content/EmptyRepositoryStart.h"

#include "core/queue/BackgroundWork.h"
#include "core/service/GitServiceProtocol.h"
#include "core/support/AtomicFile.h"
#include "core/support/UserDefaults.h"
#include "settings/GeneralSettings.h"

#include <QFile>

namespace orvel {

namespace {

// Used when the program carries no "default.gitignore".
constexpr const char* fallbackGitignore =
    ".DS_Store\n.build/\nbuild/\nDerivedData/\nnode_modules/\n.env\n*.log\n";

std::string gitignoreText(const QString& resource) {
    QFile file(resource);
    if (!resource.isEmpty() && file.open(QIODevice::ReadOnly))
        return file.readAll().toStdString();
    return fallbackGitignore;
}

} // namespace

EmptyRepositoryStart EmptyRepositoryStart::fromSettings(const UserDefaults& defaults, const QString& repoName,
                                                        const QString& gitignoreResource) {
    EmptyRepositoryStart start;
    start.message = defaults.string(QStringLiteral("emptyRepoInitMessage"), QStringLiteral("Initialization"));
    start.description = defaults.string(QStringLiteral("emptyRepoInitDesc"));
    if (start.description.isEmpty())
        start.description = defaultEmptyRepoInitDescription();
    start.fileName = initialFileName(
        emptyRepoInitFileOf(defaults.string(QStringLiteral("emptyRepoInitFile"), QStringLiteral("gitkeep"))));
    if (start.fileName == QLatin1String("README.md"))
        start.fileContent = "# " + repoName.toStdString() + "\n";
    else if (start.fileName == QLatin1String(".gitignore"))
        start.fileContent = gitignoreText(gitignoreResource);
    return start;
}

std::string EmptyRepositoryStart::commitMessage() const {
    std::string text = message.toStdString();
    if (!description.isEmpty())
        text += "\n\n" + description.toStdString();
    return text;
}

QCoro::Task<void> startEmptyRepository(std::shared_ptr<GitServiceProtocol> service, RepoEntry repo,
                                       EmptyRepositoryStart start, std::stop_token cancellation) {
    const std::string name = start.fileName.toStdString();
    auto written = runOnPool(backgroundPool(), [file = repo.path + "/" + name, content = start.fileContent] {
        replaceFileAtomically(file, content);
    });
    co_await std::move(written);
    auto staged = service->stage(repo, name, cancellation);
    co_await std::move(staged);
    auto committed = service->commit(repo, start.commitMessage(), cancellation);
    co_await std::move(committed);
    auto pushed = service->push(repo, "origin", cancellation);
    co_await std::move(pushed);
}

} // namespace orvel
