// How long a test waits for what must come: many times what that takes on a busy machine. Only a
// fault waits it out.
#pragma once

#include <chrono>

namespace scenewright::testing {

inline constexpr std::chrono::seconds kLimit{120};
inline constexpr int kLimitMilliseconds = 120'000;

} // namespace scenewright::testing
