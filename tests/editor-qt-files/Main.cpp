// The tests run as one application without a display, with settings of their own.
#include "tests/support/TempFolder.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    const scenewright::testing::TempFolder settings;
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("XDG_CONFIG_HOME", settings.path().c_str());
    qputenv("XDG_STATE_HOME", settings.path().c_str());
    ::testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    // No pause of a busy machine cuts typed text short.
    QApplication::setKeyboardInputInterval(3600000);
    return RUN_ALL_TESTS();
}
