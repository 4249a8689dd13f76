#include "editor/qt/ProgramSettings.h"

#include <QDir>
#include <QFileInfo>

namespace scenewright {

namespace {

const QString kFilesKey = QStringLiteral("recent");
const QString kFolderKey = QStringLiteral("folder");

} // namespace

QStringList RecentFiles::list() {
    QStringList existing;
    for (const QString& file : programSettings().value(kFilesKey).toStringList())
        if (QFileInfo::exists(file))
            existing.append(file);
    return existing.mid(0, kMax);
}

void RecentFiles::add(const QString& file) {
    const QString whole = QFileInfo(file).absoluteFilePath();
    QStringList files = list();
    files.removeAll(whole);
    files.prepend(whole);
    programSettings().setValue(kFilesKey, files.mid(0, kMax));
    setFolderOf(whole);
}

QString RecentFiles::folder() {
    const QString kept = programSettings().value(kFolderKey).toString();
    return !kept.isEmpty() && QFileInfo(kept).isDir() ? kept : QDir::homePath();
}

void RecentFiles::setFolderOf(const QString& file) {
    programSettings().setValue(kFolderKey, QFileInfo(file).absolutePath());
}

} // namespace scenewright
