#pragma once

#include <random>

#include "platform/RandomSource.h"

namespace tidewright::platform {

/// Numbers that differ on every run: a fast generator seeded by the machine's entropy source.
class SystemRandom final : public RandomSource {
public:
    SystemRandom();

    std::uint64_t bits() override;
    std::int64_t below(std::int64_t bound) override;
    double halfOpen(double low, double high) override;
    double closed(double low, double high) override;

private:
    std::mt19937_64 generator_;
};

}  // namespace tidewright::platform
