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

    // Appends a task; each runs once, in the order of the posting. Any thread. Throws
    // std::bad_alloc when there is no memory for the task: then the queue is as it was.
    static void post(Task task);

    // Hands every task, those waiting included, to `poster`; an empty poster ends the adoption.
    // `poster` is called on the posting thread and must run its tasks on the main thread, in order.
    // One that throws has not taken its task: this one and those behind it wait for the next post,
    // adoption or pump. On return the former poster is no longer being called, unless it is the one
    // that calls here.
    static void adopt(Poster poster);

    // Runs every waiting task, those posted meanwhile included. Main thread. Returns how many ran;
    // none while a poster is being called.
    static std::size_t pump();

    // Waits for tasks and runs them until `isDone` says so; asked before each wait. Main thread.
    static void pumpUntil(const std::function<bool()>& isDone);

    // Makes the queue, if nobody has used it yet: what is made after it ends before it.
    static void prepare();
};

// Suspends the calling thread for at least the given time; what paces packets takes it as a
// function so that tests need not wait for it. Any thread may call it.
using Sleep = std::function<void(std::chrono::nanoseconds)>;

// The real pause: the kernel's sleep, never a spin.
void sleepFor(std::chrono::nanoseconds duration);

} // namespace scenewright
