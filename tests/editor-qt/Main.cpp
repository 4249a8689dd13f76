// The tests of the window run as one application without a display, away from the user's settings
// and language.
#include "editor/qt/Theme.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("XDG_CONFIG_HOME", "/nonexistent");
    qputenv("XDG_STATE_HOME", "/nonexistent");
    qputenv("LC_ALL", "C.UTF-8");
    qunsetenv("LANGUAGE");
    ::testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    scenewright::applyTheme(false);
    QApplication::setDoubleClickInterval(1);
    // No pause of a busy machine cuts typed text short.
    QApplication::setKeyboardInputInterval(3600000);
    return RUN_ALL_TESTS();
}
