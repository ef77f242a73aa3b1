// The program's entry: the application object, the start-up sequence and the main window. Its
// arguments are folders to open as tabs (a file manager's "Open with" gives them); when this user's
// program runs already, they go to it and this start ends.
#include "app/Appearance.h"
#include "app/OrvelApp.h"
#include "app/SingleInstance.h"
#include "core/support/Version.h"
#include "settings/GeneralSettingsViewModel.h"
#include "workspace/FolderOpener.h"
#include "workspace/AppViewModel.h"
#include "workspace/WorkspaceTabState.h"
#include "workspace/WorkspaceViewModel.h"
#include "workspace/ui/CredentialDialog.h"
#include "workspace/ui/MainWindow.h"

#include <QApplication>
#include <QDir>
#include <QIcon>

#include <cstdio>
#include <memory>
#include <string_view>

namespace {

// For the start-to-graph benchmark: ORVEL_BENCH_MARK_GRAPH opens every tab on its history page and
// prints a line at each tab's first painted graph; ORVEL_BENCH_OPEN_REPOS, repositories one a line,
// opens the next of them after each, so that one process holds several loaded tabs.
void reportPaintedGraphs(orvel::MainWindow& window, orvel::AppViewModel& model) {
    if (!qEnvironmentVariableIsSet("ORVEL_BENCH_MARK_GRAPH"))
        return;
    auto pending = std::make_shared<QStringList>(
        qEnvironmentVariable("ORVEL_BENCH_OPEN_REPOS").split(QLatin1Char('\n'), Qt::SkipEmptyParts));
    QObject::connect(&model, &orvel::AppViewModel::tabOpened, &model, [](orvel::WorkspaceTabState* tab) {
        tab->workspace().setActiveTab(orvel::WorkspaceTab::repoHistory);
    });
    QObject::connect(&window, &orvel::MainWindow::graphPainted, &model, [&model, pending] {
        std::fputs("orvel: graph painted\n", stdout);
        std::fflush(stdout);
        if (!pending->isEmpty())
            model.openRepository(pending->takeFirst().toStdString());
    });
}

// A hand-over brings the window to the front, out of the task bar if it was minimised.
void bringToFront(QWidget& window) {
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

} // namespace

int main(int argc, char** argv) {
    if (argc == 2 && std::string_view(argv[1]) == "--version") {
        std::printf("Orvel %.*s\n", static_cast<int>(orvel::orvelVersion.size()), orvel::orvelVersion.data());
        return 0;
    }
    QApplication application(argc, argv);
    QApplication::setOrganizationName("Orvel");
    QApplication::setApplicationName("Orvel");
    QApplication::setApplicationVersion(QLatin1String(orvel::orvelVersion));
    QApplication::setQuitOnLastWindowClosed(true);
    QApplication::setDesktopFileName(QStringLiteral(ORVEL_APPLICATION_ID));
    QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral(ORVEL_APPLICATION_ID),
                                                 QIcon(QStringLiteral(":/" ORVEL_APPLICATION_ID ".svg"))));

    const QStringList folders = orvel::absoluteFolders(QApplication::arguments().mid(1), QDir::currentPath());
    orvel::SingleInstance instance(orvel::SingleInstance::defaultSocketPath());
    if (instance.handOffOrListen(folders))
        return 0;

    orvel::OrvelApp app;
    orvel::MainWindow window(app.appViewModel(), app.defaults());
    window.setSettingsPages(app.settingsPages());
    orvel::CredentialDialog credentialDialog(app.credentialManager(), &window);
    QObject::connect(&window.generalSettings(), &orvel::GeneralSettingsViewModel::appearanceChanged,
                     &orvel::applyAppearance);
    reportPaintedGraphs(window, app.appViewModel());
    QObject::connect(&instance, &orvel::SingleInstance::foldersHandedOver, &window,
                     [&window](const QStringList& handed) {
                         bringToFront(window);
                         window.openFolders(handed);
                     });
    bringToFront(window);
    window.openFolders(folders);
    return QApplication::exec();
}
