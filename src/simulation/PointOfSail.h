#pragma once

#include <string_view>

namespace tidewright::simulation {

/// How a leg lies to the wind, from close-hauled to well off.
enum class PointOfSail { beat, closeReach, beamReach, broadReach, run };

/// The true wind angle that the helm holds, in degrees, (0, 180). Close-hauled it opens from 40 in
/// 15 knots of wind or more to 48 in 5 or less; `windSpeed` in knots.
double targetAngle(PointOfSail sail, double windSpeed);

/// For the user, in French.
std::string_view label(PointOfSail sail);

}  // namespace tidewright::simulation
