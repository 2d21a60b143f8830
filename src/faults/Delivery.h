#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "faults/FailureInjection.h"
#include "platform/Lifetime.h"
#include "platform/MainLoop.h"
#include "platform/RandomSource.h"

namespace tidewright::faults {

/// Decides which sentences leave, and when.
class Delivery {
public:
    using Send = std::function<void(std::string sentence)>;

    /// `send` puts one sentence on the network. The other arguments must outlive this.
    Delivery(platform::MainLoop& loop, platform::RandomSource& random,
             const FailureInjection& faults, Send send);

    /// Loses each of the sentences or sends it, at once or after the latency of this moment.
    /// Nothing takes back a sentence that waits.
    void deliver(std::vector<std::string> sentences);

    /// Whether no sentence waits any more.
    bool isEmpty() const { return waiting_ == 0; }

private:
    bool isLost();
    void sendLater(std::string sentence);

    platform::MainLoop& loop_;
    platform::RandomSource& lossDraws_;
    const FailureInjection& faults_;
    Send send_;
    std::size_t waiting_ = 0;  // sentences
    platform::Lifetime lifetime_;
};

}  // namespace tidewright::faults
