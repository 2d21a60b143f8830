#pragma once

#include "platform/RandomSource.h"

namespace tidewright::simulation {

/// Nine random walks around zero, each pulled back towards it; each in the unit of the quantity
/// that it is named after.
struct DriftState {
    double sog = 0;      ///< knots
    double cog = 0;      ///< degrees
    double heading = 0;  ///< degrees
    double stw = 0;      ///< knots
    double aws = 0;      ///< knots
    double awa = 0;      ///< degrees
    double depth = 0;    ///< metres
    double temp = 0;     ///< degrees Celsius
    double sats = 0;     ///< satellites

    bool operator==(const DriftState&) const = default;

    /// Lets `dt` (>= 0) seconds pass. Draws once a field, in their order, within [-1, 1].
    void step(double dt, platform::RandomSource& random);
};

}  // namespace tidewright::simulation
