#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace tidewright::soak {

/// How many sentences took how long from the broadcast to a client, in tenths of a millisecond.
class Latencies {
public:
    void add(std::int64_t nanoseconds) {
        const auto tenth = static_cast<std::size_t>(nanoseconds / 100'000);
        ++counts_[tenth < counts_.size() ? tenth : counts_.size() - 1];
        ++total_;
    }

    std::uint64_t total() const { return total_; }

    /// What `share`, within (0, 1], of all stay below, in milliseconds.
    double quantile(double share) const {
        auto left = static_cast<std::int64_t>(share * static_cast<double>(total_));
        std::size_t tenth = 0;
        while (tenth + 1 < counts_.size() && (left -= counts_[tenth]) > 0) ++tenth;
        return static_cast<double>(tenth + 1) / 10;
    }

private:
    std::array<std::int64_t, 100'000> counts_{};
    std::uint64_t total_ = 0;
};

}  // namespace tidewright::soak
