#include "simulation/BoatState.h"

#include <cmath>

#include "simulation/EarthModel.h"

namespace tidewright::simulation {

BoatState BoatState::starting(platform::WallTime timestamp, Position home) {
    return {.latitude = home.latitude,
            .longitude = home.longitude,
            .sog = 6.0,
            .cog = 120.0,
            .heading = 125.0,
            .stw = 5.8,
            .apparentWindAngle = 40.0,
            .apparentWindSpeed = 15.0,
            .trueWindAngle = 55.0,
            .trueWindSpeed = 12.0,
            .depth = 12.0,
            .waterTemperature = 16.5,
            .gpsFix = true,
            .satelliteCount = 11,
            .timestamp = timestamp};
}

void BoatState::integratePosition(double dt) {
    const double distance = dt / secondsPerHour * sog * metresPerNauticalMile;
    const double course = radians(cog);
    const double metresPerDegree = metresPerDegreeOfLongitude(latitude);
    latitude += distance * std::cos(course) / metresPerDegreeOfLatitude;
    if (metresPerDegree > 1) longitude += distance * std::sin(course) / metresPerDegree;
}

}  // namespace tidewright::simulation
