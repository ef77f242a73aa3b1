#include "workspace/FolderOpener.h"

#include "workspace/AppViewModel.h"

#include <QDir>
#include <QPointer>

namespace orvel {

QStringList absoluteFolders(const QStringList& arguments, const QString& workingFolder) {
    QStringList folders;
    const QDir base(workingFolder);
    for (const QString& argument : arguments)
        folders.append(QDir::cleanPath(base.absoluteFilePath(argument)));
    return folders;
}

FolderOpener::FolderOpener(AppViewModel& model, QObject* parent) : QObject(parent), model_(model) {}

void FolderOpener::open(const QStringList& folders) {
    pending_.append(folders);
    if (!opening_ && !pending_.isEmpty())
        openPending();
}

QCoro::Task<void> FolderOpener::openPending() {
    opening_ = true;
    QPointer<FolderOpener> self(this);
    while (self && !self->pending_.isEmpty())
        co_await self->model_.openRepository(self->pending_.takeFirst().toStdString());
    if (self)
        self->opening_ = false;
}

} // namespace orvel
