// Which control lies next to another on the picture.
#pragma once

#include <QRectF>

#include <cstdint>
#include <functional>

namespace scenewright {

// The tag of the control next to `tag` in a direction (-1, 0 or 1 each way), or `tag` itself when
// nothing lies there. `place` gives the place of a tag from 1 to 45.
[[nodiscard]] std::int32_t neighbourOf(std::int32_t tag, int right, int down,
                                       const std::function<QRectF(std::int32_t)>& place);

} // namespace scenewright
