// The queue of tasks that belong on the program's main thread.
//
// Any thread posts; only the main thread runs. A command line pumps the queue itself; a toolkit
// adopts it, and from then on every task goes to the toolkit's own event loop, in order.
#pragma once

#include <chrono>
#include <functional>

namespace scenewright {

class MainQueue {
public:
    MainQueue() = delete;

    using Task = std::function<void()>;
    using Poster = std::function<void(Task)>;

    // Appends a task. Tasks run in the order of their posting. Any thread.
    static void post(Task task);

    // Hands every task, those waiting included, to `poster`; an empty poster ends the adoption.
    // `poster` is called on the posting thread and must run its tasks on the main thread, in order.
    static void adopt(Poster poster);

    // Runs every waiting task, those posted meanwhile included. Main thread. Returns how many ran.
    static std::size_t pump();

    // Waits until a task is there or `limit` has passed, then pumps. Main thread.
    static std::size_t waitAndPump(std::chrono::milliseconds limit);
};

} // namespace scenewright
