// What the window keeps from one start to the next. Main thread.
#pragma once

#include <QSettings>
#include <QStringList>

namespace scenewright {

// The window's own settings, in the user's configuration folder (scenewright/window.conf).
[[nodiscard]] inline QSettings programSettings() {
    return QSettings(QStringLiteral("scenewright"), QStringLiteral("window"));
}

// The banks that were last opened or saved, and the folder that the next file is looked for in.
// Both are kept in the program's settings.
class RecentFiles {
public:
    RecentFiles() = delete;

    static constexpr int kMax = 8;

    // Those that still exist, newest first.
    [[nodiscard]] static QStringList list();
    static void add(const QString& file);

    // The home folder at first, or when it is gone.
    [[nodiscard]] static QString folder();
    static void setFolderOf(const QString& file);
};

} // namespace scenewright
