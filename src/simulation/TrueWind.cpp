#include "simulation/TrueWind.h"

#include <cmath>

#include "simulation/Angles.h"

namespace tidewright::simulation {

RelativeWind trueWind(double awa, double aws, double boatSpeed) {
    const double angle = radians(awa);
    const double fromStarboard = aws * std::sin(angle);
    const double fromAhead = aws * std::cos(angle) - boatSpeed;
    return {.angle = wrap180(degrees(std::atan2(fromStarboard, fromAhead))),
            .speed = std::sqrt(fromAhead * fromAhead + fromStarboard * fromStarboard)};
}

}  // namespace tidewright::simulation
