// Lets the user open the keyboards of the list: the access rules are installed as the superuser,
// through polkit, or by a command for a terminal.
#pragma once

#include <QObject>
#include <QString>

namespace scenewright {

// Main thread only. A question that is open when the installer goes is closed.
class AccessInstaller final : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    // Whether this system has what installs through polkit.
    [[nodiscard]] static bool isAvailable();

    // What installs the rules when it is typed into a terminal. It names the command-line program
    // in the folder `programs` by its path, unless that is the one that a shell finds.
    [[nodiscard]] static QString command(const QString& programs);

    // Asks for an administrator's password, where polkit wants one, and installs the rules of the
    // list as it is now.
    void start();

signals:
    // What came of it, in a sentence.
    void ended(const QString& sentence);
};

} // namespace scenewright
