#include "faults/Delivery.h"

#include <chrono>
#include <utility>

#include "platform/Check.h"

namespace tidewright::faults {

Delivery::Delivery(platform::MainLoop& loop, platform::RandomSource& random,
                   const FailureInjection& faults, Send send)
    : loop_(loop),
      lossDraws_(random.stream("faults.loss")),
      faults_(faults),
      send_(std::move(send)) {}

void Delivery::deliver(std::vector<std::string> sentences) {
    for (std::string& each : sentences) {
        if (isLost()) continue;
        if (faults_.latencyMs < 1)
            send_(std::move(each));
        else
            sendLater(std::move(each));
    }
}

bool Delivery::isLost() {
    if (faults_.packetLossPercent < 1) return false;
    return lossDraws_.below(100) < faults_.packetLossPercent;
}

void Delivery::sendLater(std::string sentence) {
    const std::int64_t latency = faults_.latencyMs;
    platform::check(latency <= std::chrono::milliseconds::max().count() / 1'000'000,
                    "a latency must be countable in nanoseconds");
    ++waiting_;
    loop_.after(std::chrono::milliseconds(latency),
                lifetime_.guard([this, sentence = std::move(sentence)] {
                    --waiting_;
                    send_(sentence);
                }));
}

}  // namespace tidewright::faults
