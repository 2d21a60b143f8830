#pragma once

#include <cstdint>

#include "platform/RandomSource.h"
#include "simulation/SeededGenerator.h"

namespace tidewright {

/// Chance that comes again: the same seed, the same draws.
class SeededRandom final : public platform::RandomSource {
public:
    explicit SeededRandom(std::uint64_t seed) : generator_{seed} {}

    std::uint64_t bits() override { return generator_.next(); }
    std::int64_t below(std::int64_t bound) override {
        return static_cast<std::int64_t>(generator_.bounded(static_cast<std::uint64_t>(bound)));
    }
    double halfOpen(double low, double high) override { return generator_.halfOpen(low, high); }
    double closed(double low, double high) override { return generator_.closed(low, high); }

private:
    simulation::SeededGenerator generator_;
};

}  // namespace tidewright
