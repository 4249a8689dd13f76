#include "usb/Shutdown.h"

#include "platform/Files.h"
#include "usb/Transport.h"

#include <array>
#include <future>
#include <pthread.h>
#include <unistd.h>
#include <utility>

namespace scenewright {

namespace {

constexpr std::array kEndingSignals{SIGINT, SIGTERM, SIGHUP};
constexpr int kStopWatching = SIGURG; // the object's own end; harmless when others send it

bool isIgnored(int signal) {
    struct sigaction action {};
    return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

// Leaves it behind when it is not done in time.
void doWithin(std::chrono::milliseconds limit, std::function<void()> work) {
    std::packaged_task<void()> task(std::move(work));
    const auto done = task.get_future();
    std::thread(std::move(task)).detach();
    done.wait_for(limit);
}

} // namespace

Shutdown::Shutdown(ShutdownLimits limits) : limits_(limits) {
    std::signal(SIGPIPE, SIG_IGN);
    sigemptyset(&watched_);
    sigaddset(&watched_, kStopWatching);
    for (const int signal : kEndingSignals)
        if (!isIgnored(signal))
            sigaddset(&watched_, signal);
    pthread_sigmask(SIG_BLOCK, &watched_, &former_);
    watcher_ = std::thread([this] { watch(); });
}

Shutdown::~Shutdown() {
    Transport::instance().shutDown();
    isStopping_ = true;
    pthread_kill(watcher_.native_handle(), kStopWatching);
    watcher_.join();
    pthread_sigmask(SIG_SETMASK, &former_, nullptr);
}

void Shutdown::setLastWork(std::function<void()> work) {
    const std::lock_guard lock(mutex_);
    lastWork_ = std::move(work);
}

void Shutdown::setWorkAfterRelease(std::function<void()> work) {
    const std::lock_guard lock(mutex_);
    workAfterRelease_ = std::move(work);
}

void Shutdown::watch() {
    pthread_setname_np(pthread_self(), "signals");
    int signal = kStopWatching;
    while (signal == kStopWatching && !isStopping_)
        sigwait(&watched_, &signal);
    if (signal == kStopWatching)
        return;
    std::function<void()> lastWork;
    std::function<void()> workAfterRelease;
    {
        const std::lock_guard lock(mutex_);
        lastWork = lastWork_;
        workAfterRelease = workAfterRelease_;
    }
    if (lastWork)
        doWithin(limits_.work, std::move(lastWork));
    doWithin(limits_.bus, [work = std::move(workAfterRelease)] {
        Transport::instance().shutDown();
        if (work)
            work();
    });
    const auto files = keepFromHiddenNames(limits_.file);
    raise(signal);
    pthread_sigmask(SIG_UNBLOCK, &watched_, nullptr);
    _exit(128 + signal); // the first process of a container is not ended by its own signal
}

} // namespace scenewright
