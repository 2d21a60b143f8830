#pragma once

#include <cmath>

#include "simulation/Angles.h"

namespace tidewright::simulation {

// A sphere seen from nearby: good to a few metres over the few miles that a run covers.

inline constexpr double metresPerNauticalMile = 1852.0;
inline constexpr double secondsPerHour = 3600.0;
inline constexpr double metresPerDegreeOfLatitude = 111320.0;

/// At `latitude`, in degrees. Falls to zero at the poles: guard before dividing by it.
inline double metresPerDegreeOfLongitude(double latitude) {
    return std::cos(radians(latitude)) * metresPerDegreeOfLatitude;
}

}  // namespace tidewright::simulation
