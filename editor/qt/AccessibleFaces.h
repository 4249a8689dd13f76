// What the window's own widgets are to an assistive technology, where the toolkit's idea of them
// would mislead: segments are radio buttons, a notice is an alert, and the controls of the picture
// stand in the order of their tags, whichever is drawn above another.
#pragma once

namespace scenewright {

// For all widgets whose faces are asked for afterwards. May be called again; main thread.
void installAccessibleFaces();

} // namespace scenewright
