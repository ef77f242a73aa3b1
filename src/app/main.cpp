// The program's entry: the application object, the start-up sequence and the main window.
#include "app/Appearance.h"
#include "app/OrvelApp.h"
#include "core/support/Version.h"
#include "settings/GeneralSettingsViewModel.h"
#include "workspace/AppViewModel.h"
#include "workspace/WorkspaceTabState.h"
#include "workspace/WorkspaceViewModel.h"
#include "workspace/ui/CredentialDialog.h"
#include "workspace/ui/MainWindow.h"

#include <QApplication>

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

    orvel::OrvelApp app;
    orvel::MainWindow window(app.appViewModel(), app.defaults());
    orvel::CredentialDialog credentialDialog(app.credentialManager(), &window);
    QObject::connect(&window.generalSettings(), &orvel::GeneralSettingsViewModel::appearanceChanged,
                     &orvel::applyAppearance);
    reportPaintedGraphs(window, app.appViewModel());
    window.show();
    window.raise();
    window.activateWindow();
    return QApplication::exec();
}
