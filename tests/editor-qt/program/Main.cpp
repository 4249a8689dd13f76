// The tests of the program bring their display with them, and are an application on it themselves.
#include "tests/editor-qt/program/XServer.h"
#include "tests/support/TempFolder.h"

#include <QApplication>
#include <gtest/gtest.h>

#include <cstdio>
#include <memory>

int main(int argc, char** argv) {
    qputenv("LC_ALL", "C.UTF-8"); // of the programs that the tests start, too
    qunsetenv("LANGUAGE");
    // Qt 6.8 asks for a desktop's portal, and loses what it asked with when nobody answers.
    qputenv("QT_NO_XDG_DESKTOP_PORTAL", "1");
    ::testing::InitGoogleTest(&argc, argv);
    std::unique_ptr<scenewright::testing::XServer> server;
    if (GTEST_FLAG_GET(list_tests))
        return RUN_ALL_TESTS();
    server = std::make_unique<scenewright::testing::XServer>();
    if (server->display().isEmpty()) {
        std::fputs("Xvfb does not start\n", stderr);
        return 1;
    }
    qputenv("DISPLAY", server->display().toLatin1());
    qputenv("QT_QPA_PLATFORM", "xcb");
    const scenewright::testing::TempFolder home;
    qputenv("XDG_CONFIG_HOME", home.file("config").c_str());
    qputenv("XDG_STATE_HOME", home.file("state").c_str());
    int result = 1;
    {
        const QApplication application(argc, argv);
        result = RUN_ALL_TESTS();
    }
    return result;
}
