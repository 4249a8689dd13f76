// A display without a screen, for the length of its object.
#pragma once

#include <QProcess>
#include <QString>

namespace scenewright::testing {

class XServer {
public:
    // Starts Xvfb on a free display. `display()` is empty when it does not start.
    XServer();
    ~XServer();
    XServer(const XServer&) = delete;
    XServer& operator=(const XServer&) = delete;
    XServer(XServer&&) = delete;
    XServer& operator=(XServer&&) = delete;

    [[nodiscard]] const QString& display() const { return display_; }

private:
    QProcess server_;
    QString display_;
};

} // namespace scenewright::testing
