// The tests of the window run as one application without a display, away from the user's settings.
#include "editor/qt/Theme.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("XDG_CONFIG_HOME", "/nonexistent");
    qputenv("XDG_STATE_HOME", "/nonexistent");
    ::testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    scenewright::applyTheme(application, false);
    QApplication::setDoubleClickInterval(1);
    return RUN_ALL_TESTS();
}
