#pragma once

namespace tidewright::simulation {

/// A wind as felt from a boat that moves straight ahead.
struct RelativeWind {
    double angle = 0;  ///< degrees off the bow, [-180, 180], positive to starboard
    double speed = 0;  ///< knots
};

/// The true wind behind the apparent one. `awa` in degrees (any finite value), positive to
/// starboard; `aws` and `boatSpeed` in knots. With no true wind the angle is that of the zero
/// vector.
RelativeWind trueWind(double awa, double aws, double boatSpeed);

}  // namespace tidewright::simulation
