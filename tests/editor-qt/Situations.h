// Pictures of the window in situations that come up seldom: transfers that went wrong, differences,
// dialogs and menus. Nothing in the documentation shows them; they are for looking at.
#pragma once

#include "editor/qt/EditorCommands.h"

#include <functional>
#include <string>
#include <vector>

namespace scenewright {

// What is plugged in, in the pictures.
inline std::vector<AttachedDevice> picturedDevices;

// Gives each picture to `keep` under its name; ends at the first that is refused. The transport
// gets other controllers.
[[nodiscard]] bool
keepSituations(MainWindow& window, EditorCommands& commands,
               const std::function<bool(const QPixmap& picture, const std::string& name)>& keep);

} // namespace scenewright
