#include "editor/qt/AccessInstaller.h"

#include "app/Keyboards.h"
#include "editor/qt/QtHelpers.h"
#include "usb/DeviceList.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

namespace scenewright {

namespace {

const QString kPkexec = QStringLiteral("pkexec");

// As the superuser: the rules come in on standard input, and count for what is plugged in now.
// Where udev does not take them at once, it does when something is plugged in. The exit codes are
// none of those with which pkexec tells that it started nothing.
QString script() {
    return QStringLiteral("umask 022; "
                          "cat >%1.new && mv %1.new %1 || { rm -f %1.new; exit 1; }; "
                          "udevadm control --reload && "
                          "udevadm trigger --action=change --subsystem-match=usb; "
                          "exit 0")
        .arg(QLatin1String(kAccessRulesFile));
}

// By what pkexec documents of its exit codes.
QString resultOf(QProcess& pkexec) {
    constexpr int kDismissed = 126;
    constexpr int kNotAuthorized = 127; // also when there is nobody to ask
    const bool isEnded =
        pkexec.error() != QProcess::FailedToStart && pkexec.exitStatus() == QProcess::NormalExit;
    const int code = isEnded ? pkexec.exitCode() : kNotAuthorized;
    if (code == 0)
        return AccessInstaller::tr("The rules are installed. If the keyboard is still not allowed, "
                                   "plug it in again.");
    if (code == kDismissed)
        return AccessInstaller::tr(
            "The rules were not installed: the question for a password was closed.");
    if (code == kNotAuthorized)
        return AccessInstaller::tr(
            "The rules were not installed: polkit did not allow it, or cannot ask for a password "
            "here. Copy Command copies a line for a terminal.");
    return AccessInstaller::tr("The rules were not installed: %1")
        .arg(QString::fromLocal8Bit(pkexec.readAllStandardError()).trimmed());
}

} // namespace

bool AccessInstaller::isAvailable() {
    return !QStandardPaths::findExecutable(kPkexec).isEmpty();
}

QString AccessInstaller::command(const QString& programs) {
    const QString name = QStringLiteral("scenewright-cli");
    const QFileInfo beside(QDir(programs), name);
    const QFileInfo found(QStandardPaths::findExecutable(name));
    const bool isFound =
        !beside.exists() || beside.canonicalFilePath() == found.canonicalFilePath();
    const QString program = isFound ? name : beside.filePath();
    return QString::fromStdString(accessCommand(program.toStdString()));
}

void AccessInstaller::start() {
    auto& process = makeChild<QProcess>(this);
    const auto end = [this, &process] {
        process.deleteLater();
        emit ended(resultOf(process));
    };
    connect(&process, &QProcess::finished, this, end);
    connect(&process, &QProcess::errorOccurred, this, [end](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            end(); // and nothing finishes
    });
    // Without a desktop's question pkexec would ask in the terminal that the window was started
    // from.
    process.start(kPkexec, {QStringLiteral("--disable-internal-agent"), QStringLiteral("/bin/sh"),
                            QStringLiteral("-c"), script()});
    process.write(QByteArray::fromStdString(udevRules(deviceList())));
    process.closeWriteChannel();
}

} // namespace scenewright
