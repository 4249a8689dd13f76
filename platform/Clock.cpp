#include "platform/Clock.h"

#include <sys/prctl.h>
#include <thread>

namespace scenewright {

namespace {

constexpr unsigned long kMinSlack = 1; // nanoseconds; 0 stands for the thread's default
constexpr unsigned long kDefaultSlack = 0;

} // namespace

// The kernel may wake a thread later than asked, by the thread's timer slack: 50 microseconds when
// nothing else is said, which would lengthen each of a transfer's thousand pauses by a twentieth.
void sleepFor(std::chrono::nanoseconds duration) {
    ::prctl(PR_SET_TIMERSLACK, kMinSlack);
    std::this_thread::sleep_for(duration);
    ::prctl(PR_SET_TIMERSLACK, kDefaultSlack);
}

} // namespace scenewright
