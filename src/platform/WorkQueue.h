#pragma once

#include <functional>
#include <memory>
#include <string>

namespace asio {
class io_context;
}

namespace tidewright::platform {

/// A private serial work queue: one thread that runs what it is given, in order. Any thread may
/// call it. The one place of the program where threads meet.
class WorkQueue {
public:
    using Task = std::function<void()>;
    using Start = std::function<void(Task done)>;

    /// `label` names the thread in debuggers and process listings (Linux shows 15 characters).
    explicit WorkQueue(const std::string& label);

    /// Runs the posted tasks to the last, abandons what is still pending on context(), and joins.
    ~WorkQueue();

    WorkQueue(const WorkQueue&) = delete;
    WorkQueue& operator=(const WorkQueue&) = delete;

    /// Runs `task` on the queue, some time after this returns.
    void post(Task task);

    /// Runs `task` on the queue and returns when it is done. Must not be called on the queue
    /// itself.
    void runAndWait(const Task& task);

    /// Runs `start` on the queue, and returns when the task that it is handed has been run, there,
    /// at once or later. Must not be called on the queue itself.
    void startAndWait(const Start& start);

    /// Where the owner's sockets and timers live: their handlers run on the queue.
    asio::io_context& context();

private:
    struct Core;
    std::unique_ptr<Core> core_;
};

}  // namespace tidewright::platform
