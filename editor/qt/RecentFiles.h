// The banks that were last opened or saved, and the folder that the next file is looked for in.
// Both are kept in the program's settings. Main thread.
#pragma once

#include <QStringList>

namespace scenewright {

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
