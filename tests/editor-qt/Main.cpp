// The tests of the window run as one application without a display, away from the user's settings
// and language.
#include "editor/qt/Theme.h"
#include "tests/support/TempFolder.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // Of this process alone: some tests choose dark, and several run at once.
    const scenewright::testing::TempFolder settings;
    qputenv("XDG_CONFIG_HOME", settings.path().c_str());
    qputenv("XDG_STATE_HOME", settings.path().c_str());
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
