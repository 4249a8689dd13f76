// The tests run as one application without a display, with settings of their own.
#include "tests/support/TempFolder.h"

#include <QApplication>
#include <gtest/gtest.h>

#include <fstream>
#include <string>

namespace {

// Wider than the window: some versions of Qt restore no window wider than the screen, and the
// platform without a display has a narrow one.
void provideScreen(const std::string& file) {
    std::ofstream(file) << R"({"screens": [{"name": "wide", "x": 0, "y": 0, "width": 1920,)"
                        << R"( "height": 1080, "logicalDpi": 96, "dpr": 1}]})";
    qputenv("QT_QPA_PLATFORM", ("offscreen:configfile=" + file).c_str());
}

} // namespace

int main(int argc, char** argv) {
    const scenewright::testing::TempFolder settings;
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        provideScreen(settings.file("screen.json"));
    qputenv("XDG_CONFIG_HOME", settings.path().c_str());
    qputenv("XDG_STATE_HOME", settings.path().c_str());
    ::testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    // No pause of a busy machine cuts typed text short.
    QApplication::setKeyboardInputInterval(3600000);
    return RUN_ALL_TESTS();
}
