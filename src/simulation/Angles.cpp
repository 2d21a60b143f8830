#include "simulation/Angles.h"

#include <algorithm>
#include <cmath>

namespace tidewright::simulation {

double wrap360(double degrees) {
    const double remainder = std::fmod(degrees, 360.0);
    return remainder < 0 ? remainder + 360.0 : remainder;
}

double wrap180(double degrees) {
    double remainder = std::fmod(degrees, 360.0);
    if (remainder > 180) remainder -= 360;
    if (remainder < -180) remainder += 360;
    return std::clamp(remainder, -180.0, 180.0);
}

}  // namespace tidewright::simulation
