// The program's start as main() makes it, then two fetches of the repository argv[1], whose remote
// never answers: the second waits in the queue behind the first. Once the remote has been reached
// (the file argv[2] exists) it prints "closing" and closes the last window, which ends the program.
#include "app/OrvelApp.h"
#include "core/service/NativeGitService.h"
#include "workspace/ui/RepositoryWindow.h"

#include <QApplication>
#include <QFileInfo>
#include <QTimer>

#include <cstdio>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(true);
    if (argc != 3)
        return 2;
    const QString reached = QString::fromLocal8Bit(argv[2]);

    orvel::OrvelApp app;
    orvel::RepositoryWindow window(app.appViewModel());
    window.show();
    orvel::RepoEntry repo;
    repo.path = argv[1];
    auto running = app.gitService().fetch(repo, "origin", false);
    auto queued = app.gitService().fetch(repo, "origin", false);

    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        if (!QFileInfo::exists(reached))
            return;
        poll.stop();
        std::puts("closing");
        std::fflush(stdout);
        window.close();
    });
    poll.start(10);
    return QApplication::exec();
}
