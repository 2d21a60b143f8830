#pragma once

namespace tidewright::simulation {

/// What the hull can do: boat speed for every true wind, bilinear between the knots of a table.
namespace Polar {

/// Speed through water in knots, >= 0. `twa` in degrees off the bow, the same on both tacks and
/// clamped to 180; `tws` in knots, clamped to [0, 30]. Zero head to wind and without wind.
double speed(double twa, double tws);

}  // namespace Polar

}  // namespace tidewright::simulation
