// The option lists of the editor.
#pragma once

namespace scenewright {

class PopUpValue {};

} // namespace scenewright
