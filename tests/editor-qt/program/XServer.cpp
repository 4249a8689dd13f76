#include "tests/editor-qt/program/XServer.h"

#include "tests/support/Limits.h"

namespace scenewright::testing {

XServer::XServer() {
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

XServer::~XServer() {
    server_.terminate();
    if (!server_.waitForFinished(kLimitMilliseconds))
        server_.kill();
}

} // namespace scenewright::testing
