// The main of every test program: git runs with a private HOME and configuration and fixed
// identities and dates, so results never depend on the machine; a QApplication gives the
// coroutines an event loop to resume on.
#include "support/GitFixture.h"

#include <QApplication>
#include <QFont>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    orvel::test::IsolatedGitEnvironment environment;
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    // One font and style everywhere, so that screenshots compare across machines and runs.
    QApplication::setStyle(QStringLiteral("Fusion"));
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPointSize(10);
    QApplication::setFont(font);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
