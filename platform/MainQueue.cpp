#include "platform/MainQueue.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <sys/prctl.h>
#include <thread>
#include <utility>

namespace scenewright {

namespace {

// A task that runs once, by whichever copy of its reference is called first, and whose state goes
// on the thread that ran it.
class Entry {
public:
    explicit Entry(MainQueue::Task task) : task_(std::move(task)) {}

    void run() {
        if (taken_.exchange(true))
            return;
        const MainQueue::Task task = std::move(task_);
        task();
    }
    [[nodiscard]] bool isTaken() const { return taken_; }

private:
    MainQueue::Task task_;
    std::atomic<bool> taken_ = false;
};

using SharedPoster = std::shared_ptr<const MainQueue::Poster>;

struct Queue {
    std::mutex mutex;
    std::condition_variable arrival;
    std::condition_variable delivered;
    std::deque<std::shared_ptr<Entry>> tasks;
    SharedPoster poster;                       // null unless adopted
    const MainQueue::Poster* inCall = nullptr; // the one that is being called
    bool delivering = false;                   // then the first task stays where it is
    std::thread::id deliverer;
};

Queue& queue() {
    static Queue instance;
    return instance;
}

// Whether the poster took the task.
bool handOver(const MainQueue::Poster& poster, const std::shared_ptr<Entry>& entry) {
    try {
        poster([entry] { entry->run(); });
        return true;
    } catch (...) {
        return entry->isTaken();
    }
}

// Whether there is reason to go on with the next task, or with the same one and another poster. The
// lock is open while anything of the caller's runs or is destroyed, so that it may post.
bool deliverFirst(Queue& q, std::unique_lock<std::mutex>& lock) {
    SharedPoster poster = q.poster;
    std::shared_ptr<Entry> entry = q.tasks.front();
    q.inCall = poster.get();
    lock.unlock();
    const bool handed = handOver(*poster, entry);
    lock.lock();
    q.inCall = nullptr;
    q.delivered.notify_all();
    if (handed)
        q.tasks.pop_front();
    const bool goesOn = handed || q.poster != poster;
    lock.unlock();
    entry.reset();
    poster.reset();
    lock.lock();
    return goesOn;
}

// Hands the waiting tasks to the poster, one thread at a time so that they keep their order.
void deliver(Queue& q, std::unique_lock<std::mutex>& lock) {
    if (q.delivering)
        return;
    q.delivering = true;
    q.deliverer = std::this_thread::get_id();
    bool goesOn = true;
    while (goesOn && q.poster && !q.tasks.empty())
        goesOn = deliverFirst(q, lock);
    q.delivering = false;
    q.delivered.notify_all();
}

constexpr unsigned long kMinSlack = 1; // nanoseconds; 0 stands for the thread's default
constexpr unsigned long kDefaultSlack = 0;

} // namespace

void MainQueue::post(Task task) {
    auto entry = std::make_shared<Entry>(std::move(task));
    Queue& q = queue();
    std::unique_lock lock(q.mutex);
    q.tasks.push_back(std::move(entry));
    q.arrival.notify_all();
    deliver(q, lock);
}

void MainQueue::adopt(Poster poster) {
    SharedPoster former = poster ? std::make_shared<const Poster>(std::move(poster)) : nullptr;
    Queue& q = queue();
    std::unique_lock lock(q.mutex);
    former.swap(q.poster);
    if (former && q.deliverer != std::this_thread::get_id())
        q.delivered.wait(lock, [&] { return q.poster ? q.inCall != former.get() : !q.delivering; });
    deliver(q, lock);
}

std::size_t MainQueue::pump() {
    Queue& q = queue();
    std::size_t count = 0;
    std::unique_lock lock(q.mutex);
    while (!q.tasks.empty() && !q.delivering) {
        const std::shared_ptr<Entry> entry = std::move(q.tasks.front());
        q.tasks.pop_front();
        lock.unlock();
        entry->run();
        ++count;
        lock.lock();
    }
    return count;
}

void MainQueue::pumpUntil(const std::function<bool()>& isDone) {
    Queue& q = queue();
    while (!isDone()) {
        {
            std::unique_lock lock(q.mutex);
            q.arrival.wait(lock, [&q] { return !q.tasks.empty(); });
        }
        pump();
    }
}

void MainQueue::prepare() {
    queue();
}

// The kernel may wake a thread later than asked, by the thread's timer slack: 50 microseconds when
// nothing else is said, which would lengthen each of a transfer's thousand pauses by a twentieth.
void sleepFor(std::chrono::nanoseconds duration) {
    ::prctl(PR_SET_TIMERSLACK, kMinSlack);
    std::this_thread::sleep_for(duration);
    ::prctl(PR_SET_TIMERSLACK, kDefaultSlack);
}

} // namespace scenewright
