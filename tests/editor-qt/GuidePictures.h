// Pictures of what the guide tells of beside the settings: filling, the palette, keyboards, a
// sheet, monitor, playing and trying.
#pragma once

#include "editor/qt/EditorCommands.h"

#include <functional>
#include <string>

namespace scenewright {

// Gives each picture to `keep` under its name; ends at the first that is refused. The transport has
// a virtual controller, and the window has been read into.
[[nodiscard]] bool
keepGuidePictures(MainWindow& window,
                  const std::function<bool(const QPixmap& picture, const std::string& name)>& keep);

} // namespace scenewright
