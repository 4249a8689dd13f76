// A scene's stored name bytes as text that a person can read.
#pragma once

#include <string>
#include <string_view>

namespace scenewright {

// The name without the zero bytes at its end, as valid UTF-8: bytes that are no UTF-8 and control
// characters show as U+FFFD. For showing only; the record keeps the bytes.
[[nodiscard]] std::string displayName(std::string_view sceneName);

} // namespace scenewright
