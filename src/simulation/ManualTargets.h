#pragma once

#include "simulation/BoatState.h"

namespace tidewright::simulation {

/// What the user dials in by hand.
struct ManualTargets {
    double sog = 6;           ///< boat speed, knots: over ground and through the water alike
    double heading = 120;     ///< heading and course, degrees, any value
    double windSpeed = 15;    ///< apparent, knots
    double windAngle = 40;    ///< apparent, degrees off the bow, positive to starboard, any value
    double depth = 12;        ///< metres
    double waterTemp = 16.5;  ///< degrees Celsius

    bool operator==(const ManualTargets&) const = default;
};

/// Writes the targets into `state` as they stand, without smoothing, and moves the boat by them for
/// `dt` seconds. Leaves the satellites alone; `now` stamps the state.
void applyManual(const ManualTargets& targets, double dt, BoatState& state, platform::WallTime now);

}  // namespace tidewright::simulation
