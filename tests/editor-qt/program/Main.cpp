// The tests of the program bring their display with them, and are an application on it themselves.
#include "tests/support/Limits.h"
#include "tests/support/TempFolder.h"

#include <QApplication>
#include <QProcess>
#include <gtest/gtest.h>

#include <cstdio>
#include <memory>

namespace {

using scenewright::testing::kLimitMilliseconds;

// A display without a screen, for the length of its object.
class XServer {
public:
    // Starts Xvfb on a free display. `display()` is empty when it does not start.
    XServer() {
        // The server writes the number of its display to standard output.
        server_.start(QStringLiteral("Xvfb"),
                      {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                       QStringLiteral("0"), QStringLiteral("1280x800x24"), QStringLiteral("-dpi"),
                       QStringLiteral("96"), QStringLiteral("-nolisten"), QStringLiteral("tcp")});
        QByteArray number;
        while (!number.endsWith('\n') && server_.waitForReadyRead(kLimitMilliseconds))
            number += server_.readAllStandardOutput();
        if (!number.trimmed().isEmpty())
            display_ = QLatin1Char(':') + QString::fromLatin1(number.trimmed());
    }
    ~XServer() {
        server_.terminate();
        if (!server_.waitForFinished(kLimitMilliseconds))
            server_.kill();
    }
    XServer(const XServer&) = delete;
    XServer& operator=(const XServer&) = delete;
    XServer(XServer&&) = delete;
    XServer& operator=(XServer&&) = delete;

    [[nodiscard]] const QString& display() const { return display_; }

private:
    QProcess server_;
    QString display_;
};

} // namespace

int main(int argc, char** argv) {
    qputenv("LC_ALL", "C.UTF-8"); // of the programs that the tests start, too
    qunsetenv("LANGUAGE");
    // Qt 6.8 asks for a desktop's portal, and loses what it asked with when nobody answers.
    qputenv("QT_NO_XDG_DESKTOP_PORTAL", "1");
    ::testing::InitGoogleTest(&argc, argv);
    std::unique_ptr<XServer> server;
    if (GTEST_FLAG_GET(list_tests))
        return RUN_ALL_TESTS();
    server = std::make_unique<XServer>();
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
