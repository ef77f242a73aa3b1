// The main of every test program: git runs with a private HOME and configuration and fixed
// identities and dates, so results never depend on the machine; a QApplication gives the
// coroutines an event loop to resume on.
#include "support/GitFixture.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    orvel::test::IsolatedGitEnvironment environment;
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
