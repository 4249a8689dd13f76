// The window's own settings, in the user's configuration folder (scenewright/window.conf).
#pragma once

#include <QSettings>

namespace scenewright {

[[nodiscard]] inline QSettings programSettings() {
    return QSettings(QStringLiteral("scenewright"), QStringLiteral("window"));
}

} // namespace scenewright
