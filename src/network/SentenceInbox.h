#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>

#include "network/SharedBytes.h"
#include "platform/WorkQueue.h"

namespace tidewright::network {

/// The sentences on their way to a transport's own thread, within a bound: one that would go past
/// it is dropped, whole, and counted.
class SentenceInbox {
public:
    /// Of their text; the memory that they take is about four times that. A burst of the positions
    /// and static reports of 10,000 vessels has 2 MiB.
    static constexpr std::size_t usualMaximumBytes = 16 << 20;

    using Deliver = std::function<void(SharedBytes)>;

    /// `deliver` runs on `queue`, which must end before the inbox does.
    SentenceInbox(platform::WorkQueue& queue, Deliver deliver,
                  std::size_t maximumBytes = usualMaximumBytes)
        : queue_(queue), deliver_(std::move(deliver)), maximumBytes_(maximumBytes) {}

    /// Has `sentence` delivered after those before it, and returns at once. Any thread may call it.
    void post(SharedBytes sentence);

    /// How many were dropped so far. Any thread may call it.
    std::uint64_t droppedSentences() const { return droppedSentences_; }

private:
    platform::WorkQueue& queue_;
    Deliver deliver_;
    std::size_t maximumBytes_;
    std::atomic<std::size_t> bytes_ = 0;
    std::atomic<std::uint64_t> droppedSentences_ = 0;
};

}  // namespace tidewright::network
