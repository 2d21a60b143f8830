#include "simulation/AnchorSimulation.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "simulation/Angles.h"
#include "simulation/EarthModel.h"
#include "simulation/Smoothing.h"

namespace tidewright::simulation {

namespace {

constexpr double twoPi = 2 * std::numbers::pi;

struct Swing {
    double radius;  // metres
    double yaw;     // degrees to each side of downwind
    double tau;     // seconds
};

Swing swingOf(const AnchorSettings& settings) {
    const double chain = chainOut(settings);
    if (settings.chainTaut) return {0.82 * chain, 8, 18};
    return {0.28 * chain, 3, 35};
}

/// Never below a metre, so that the anchor holds at the poles too.
double guardedMetresPerDegreeOfLongitude(double latitude) {
    return std::max(metresPerDegreeOfLongitude(latitude), 1.0);
}

}  // namespace

double chainOut(const AnchorSettings& settings) {
    return std::clamp(settings.chainLength, 5.0, 200.0);
}

double swingRadius(const AnchorSettings& settings) {
    return swingOf(settings).radius;
}

AnchorSimulation::AnchorSimulation(const BoatState& state, const AnchorSettings& settings)
    : previousLatitude(state.latitude),
      previousLongitude(state.longitude),
      previousCourse(state.cog) {
    const double radius = swingRadius(settings);
    const double downwind = radians(wrap360(settings.windDirection + 180));
    east = radius * std::sin(downwind);
    north = radius * std::cos(downwind);
    anchorLatitude = state.latitude - north / metresPerDegreeOfLatitude;
    anchorLongitude = state.longitude - east / guardedMetresPerDegreeOfLongitude(state.latitude);
}

void AnchorSimulation::step(double dt, const AnchorSettings& settings, BoatState& state,
                            platform::WallTime now) {
    if (!(dt > 0 && dt < 5)) return;
    elapsed += dt;
    const double phi = twoPi * elapsed;
    const double shift = settings.shiftingWind ? std::sin(phi / 120) * settings.shiftAmplitude : 0;
    const double windDirection = wrap360(settings.windDirection + shift);
    const double downwind = wrap360(windDirection + 180);
    if (settings.dragging) drag(dt, settings.dragSpeed, downwind);
    swing(dt, settings, downwind);
    moveBoat(dt, state);

    state.stw = 0;
    state.heading = wrap360(windDirection + 3 * std::sin(phi / 21));
    state.trueWindSpeed = state.apparentWindSpeed = std::clamp(settings.windSpeed, 0.0, 50.0);
    state.trueWindAngle = state.apparentWindAngle = wrap180(windDirection - state.heading);
    state.gpsFix = true;
    state.timestamp = now;
}

void AnchorSimulation::drag(double dt, double speed, double downwind) {
    const double knots = std::clamp(speed, 0.0, 3.0);
    const double distance = dt * knots * metresPerNauticalMile / secondsPerHour;
    const double metresPerDegree = guardedMetresPerDegreeOfLongitude(anchorLatitude);
    anchorLatitude += distance * std::cos(radians(downwind)) / metresPerDegreeOfLatitude;
    anchorLongitude += distance * std::sin(radians(downwind)) / metresPerDegree;
}

void AnchorSimulation::swing(double dt, const AnchorSettings& settings, double downwind) {
    const auto [radius, yaw, tau] = swingOf(settings);
    const double bearing = radians(downwind + std::sin(twoPi * elapsed / 65) * yaw);
    const double share = lagShare(dt, tau);
    east += (radius * std::sin(bearing) - east) * share;
    north += (radius * std::cos(bearing) - north) * share;
}

void AnchorSimulation::moveBoat(double dt, BoatState& state) {
    state.latitude = anchorLatitude + north / metresPerDegreeOfLatitude;
    state.longitude = anchorLongitude + east / guardedMetresPerDegreeOfLongitude(anchorLatitude);
    const double movedNorth = (state.latitude - previousLatitude) * metresPerDegreeOfLatitude;
    const double movedEast =
        (state.longitude - previousLongitude) * guardedMetresPerDegreeOfLongitude(state.latitude);
    state.sog = std::sqrt(movedEast * movedEast + movedNorth * movedNorth) / dt * secondsPerHour /
                metresPerNauticalMile;
    if (state.sog > 0.005) previousCourse = wrap360(degrees(std::atan2(movedEast, movedNorth)));
    state.cog = previousCourse;
    previousLatitude = state.latitude;
    previousLongitude = state.longitude;
}

}  // namespace tidewright::simulation
