// The pause that paces packets, behind a function so that tests need not wait for it.
#pragma once

#include <chrono>
#include <functional>

namespace scenewright {

// Suspends the calling thread for at least the given time. Any thread may call it.
using Sleep = std::function<void(std::chrono::nanoseconds)>;

// The real pause: the kernel's sleep, never a spin.
void sleepFor(std::chrono::nanoseconds duration);

} // namespace scenewright
