#pragma once

#include <cstddef>
#include <cstdint>

namespace tidewright::gateway {

/// What went out in one second.
struct Throughput {
    std::int64_t messagesPerSecond = 0;
    double kilobytesPerSecond = 0;  ///< of 1024 bytes
};

/// Counts what is handed to the transports since the last reading.
class ThroughputMeter {
public:
    void addMessage() { ++sentAccumulator_; }
    void addBytes(std::size_t count) { byteAccumulator_ += static_cast<std::int64_t>(count); }

    std::int64_t sentAccumulator() const { return sentAccumulator_; }
    std::int64_t byteAccumulator() const { return byteAccumulator_; }

    /// The counts so far, which begin anew. Call it once a second.
    Throughput take();

private:
    std::int64_t sentAccumulator_ = 0;
    std::int64_t byteAccumulator_ = 0;
};

}  // namespace tidewright::gateway
