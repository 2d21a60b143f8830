#pragma once

#include <numbers>

namespace tidewright::simulation {

constexpr double radians(double degrees) {
    return degrees * std::numbers::pi / 180.0;
}

constexpr double degrees(double radians) {
    return radians * 180.0 / std::numbers::pi;
}

/// The same direction within [0, 360). A negative angle closer to zero than a double can tell from
/// a full turn gives 360 itself.
double wrap360(double degrees);

/// The same angle within [-180, 180]: both ends stay as they are.
double wrap180(double degrees);

}  // namespace tidewright::simulation
