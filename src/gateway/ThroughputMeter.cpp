#include "gateway/ThroughputMeter.h"

#include <utility>

namespace tidewright::gateway {

Throughput ThroughputMeter::take() {
    return {.messagesPerSecond = std::exchange(sentAccumulator_, 0),
            .kilobytesPerSecond = static_cast<double>(std::exchange(byteAccumulator_, 0)) / 1024};
}

}  // namespace tidewright::gateway
