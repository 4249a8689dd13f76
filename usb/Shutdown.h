// What a program owes the bus at its end: the interface given up and the kernel's driver back, also
// when SIGINT, SIGTERM or SIGHUP (the terminal hangs up) end it.
//
// One object, made first in main() before any thread starts: the three signals are then blocked in
// every thread but its own, which waits for them. On the first one it ends the transfers in flight
// and gives the interface up (Transport::shutDown), then ends the process by the same signal, so
// that its exit status is the usual one. Work that it was given for the end is done first. A bus
// that does not let go within a few seconds is left as it is, and so is a file that is not in its
// place by then. A signal that was ignored at the start (nohup, a background job) stays ignored,
// and SIGPIPE becomes so: a reader that leaves a pipe early must not end the program in
// mid-transfer.
#pragma once

#include <atomic>
#include <chrono>
#include <csignal>
#include <functional>
#include <mutex>
#include <thread>

namespace scenewright {

// How long a signal's end waits.
struct ShutdownLimits {
    std::chrono::milliseconds bus{5000};  // for a transfer that does not end
    std::chrono::milliseconds file{2000}; // for a file that is being put in its place
    std::chrono::milliseconds work{2000}; // for what is to be done before the end
};

class Shutdown {
public:
    explicit Shutdown(ShutdownLimits limits = {});
    // A normal end: does the same to the bus, stops the thread and unblocks the signals. Threads
    // that use the transport find it shut down; they are to be joined before main() returns.
    ~Shutdown();
    Shutdown(const Shutdown&) = delete;
    Shutdown& operator=(const Shutdown&) = delete;
    Shutdown(Shutdown&&) = delete;
    Shutdown& operator=(Shutdown&&) = delete;

    // What a signal's end does first, on a thread of its own; an empty one for nothing more. One
    // that has begun is not waited for here, so it owns what it uses. Any thread.
    void setLastWork(std::function<void()> work);
    // The same after the interface has been given up, within the time of the bus.
    void setWorkAfterRelease(std::function<void()> work);

private:
    void watch();

    const ShutdownLimits limits_;
    ::sigset_t watched_{};
    ::sigset_t former_{}; // the mask of the thread that made the object
    std::atomic<bool> isStopping_ = false;
    std::mutex mutex_;
    std::function<void()> lastWork_;         // under the mutex
    std::function<void()> workAfterRelease_; // the same
    std::thread watcher_;
};

} // namespace scenewright
