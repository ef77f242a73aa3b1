// The program's entry: the application object, the start-up sequence and the main window.
#include "app/Appearance.h"
#include "app/OrvelApp.h"
#include "workspace/AppViewModel.h"
#include "workspace/ui/MainWindow.h"

#include <QApplication>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setOrganizationName("Orvel");
    QApplication::setApplicationName("Orvel");
    QApplication::setQuitOnLastWindowClosed(true);

    orvel::OrvelApp app;
    orvel::MainWindow window(app.appViewModel(), app.defaults());
    QObject::connect(&window, &orvel::MainWindow::appearanceChosen, &orvel::applyAppearance);
    window.show();
    window.raise();
    window.activateWindow();
    return QApplication::exec();
}
