#pragma once

#include <functional>
#include <vector>

#include "network/ConnectedClient.h"
#include "platform/Lifetime.h"
#include "platform/MainLoop.h"
#include "platform/WorkQueue.h"

namespace tidewright::network {

/// Reports the list of clients to the main thread: the first change at once, and what changes soon
/// after it together.
///
/// A report takes time in proportion to the list, and so does the pause after it: when thousands
/// come and go at once, reporting takes a small part of the queue's time. A report that the main
/// thread has not taken yet is not followed by another.
class ClientReports {
public:
    using List = std::function<std::vector<ConnectedClient>()>;
    using Deliver = std::function<void(const std::vector<ConnectedClient>&)>;

    /// `list` is called on `queue`, `deliver` on the main thread. The queue must end before this is
    /// destroyed, on the main thread.
    ClientReports(platform::MainLoop& mainLoop, platform::WorkQueue& queue, List list,
                  Deliver deliver);

    // Both run on the queue.

    /// Reports that the list has changed, at once or after the pause.
    void reportChange();

    /// Reports the list at once, whatever was reported just before.
    void report();

private:
    void pause(platform::MainLoop::Duration span);
    void endPause();

    platform::MainLoop& mainLoop_;
    platform::WorkQueue& queue_;
    List list_;
    Deliver deliver_;
    bool isPausing_ = false;
    bool hasChanged_ = false;
    platform::Lifetime lifetime_;
};

}  // namespace tidewright::network
