#include "platform/Clock.h"

#include <thread>

namespace scenewright {

void sleepFor(std::chrono::nanoseconds duration) {
    std::this_thread::sleep_for(duration);
}

} // namespace scenewright
