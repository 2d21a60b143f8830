#pragma once

#include <cmath>
#include <cstdint>

#include "platform/RandomSource.h"

namespace tidewright {

/// Chance that always answers with the lowest, or always with the highest, of what was asked for.
class CornerRandom final : public platform::RandomSource {
public:
    enum class Corner { lowest, highest };

    explicit CornerRandom(Corner corner) : high_(corner == Corner::highest) {}

    std::uint64_t bits() override { return high_ ? UINT64_MAX : 0; }
    std::int64_t below(std::int64_t bound) override { return high_ ? bound - 1 : 0; }
    double halfOpen(double low, double high) override {
        return high_ ? std::nextafter(high, low) : low;
    }
    double closed(double low, double high) override { return high_ ? high : low; }

private:
    bool high_;
};

}  // namespace tidewright
