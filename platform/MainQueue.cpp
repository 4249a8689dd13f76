#include "platform/MainQueue.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <utility>

namespace scenewright {

namespace {

struct Queue {
    std::mutex mutex;
    std::condition_variable arrival;
    std::deque<MainQueue::Task> tasks;
    MainQueue::Poster poster;
    bool delivering = false;
};

Queue& queue() {
    static Queue instance;
    return instance;
}

MainQueue::Task takeFirst(Queue& q) {
    MainQueue::Task task = std::move(q.tasks.front());
    q.tasks.pop_front();
    return task;
}

// Hands the waiting tasks to the poster, one thread at a time so that they keep their order, and
// without the lock so that a poster may post.
void deliver(Queue& q, std::unique_lock<std::mutex>& lock) {
    if (q.delivering)
        return;
    q.delivering = true;
    while (q.poster && !q.tasks.empty()) {
        const MainQueue::Poster poster = q.poster;
        MainQueue::Task task = takeFirst(q);
        lock.unlock();
        poster(std::move(task));
        lock.lock();
    }
    q.delivering = false;
}

} // namespace

void MainQueue::post(Task task) {
    Queue& q = queue();
    std::unique_lock lock(q.mutex);
    q.tasks.push_back(std::move(task));
    q.arrival.notify_all();
    deliver(q, lock);
}

void MainQueue::adopt(Poster poster) {
    Queue& q = queue();
    std::unique_lock lock(q.mutex);
    q.poster = std::move(poster);
    deliver(q, lock);
}

std::size_t MainQueue::pump() {
    Queue& q = queue();
    std::size_t count = 0;
    std::unique_lock lock(q.mutex);
    while (!q.tasks.empty()) {
        const Task task = takeFirst(q);
        lock.unlock();
        task();
        ++count;
        lock.lock();
    }
    return count;
}

std::size_t MainQueue::waitAndPump(std::chrono::milliseconds limit) {
    Queue& q = queue();
    {
        std::unique_lock lock(q.mutex);
        q.arrival.wait_for(lock, limit, [&q] { return !q.tasks.empty(); });
    }
    return pump();
}

} // namespace scenewright
