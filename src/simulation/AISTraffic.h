#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "platform/RandomSource.h"
#include "simulation/AISTarget.h"
#include "simulation/DriftState.h"

namespace tidewright::simulation {

/// The other vessels: each sails on while course and speed wander, the course by 81° in a minute
/// (standard deviation, at ten steps a second).
class AISTraffic {
public:
    /// `random` must outlive this.
    explicit AISTraffic(platform::RandomSource& random) : random_(random) {}

    /// In the order of their creation.
    std::vector<AISTarget> targets;

    /// Replaces all vessels by `count` new ones, 0.3 to 4 nautical miles around a position in
    /// degrees; none when `count` is below 1. The room for them is taken before the first is made:
    /// throws std::bad_alloc, leaving no vessel, where memory cannot hold them.
    void regenerate(std::int64_t count, double latitude, double longitude);

    /// Moves every vessel on by `dt` (>= 0) seconds. Two vessels that share an MMSI share one
    /// drift.
    void advance(double dt);

private:
    AISTarget makeTarget(std::size_t index, double latitude, double longitude);

    platform::RandomSource& random_;
    std::unordered_map<std::int64_t, DriftState> drifts_;  // by MMSI
};

}  // namespace tidewright::simulation
