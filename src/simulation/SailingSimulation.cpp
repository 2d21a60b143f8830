#include "simulation/SailingSimulation.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "simulation/Angles.h"
#include "simulation/Polar.h"
#include "simulation/Smoothing.h"

namespace tidewright::simulation {

namespace {

constexpr double twoPi = 2 * std::numbers::pi;
constexpr double milesNearHome = 4;

}  // namespace

SwellPhases SwellPhases::drawn(SeededGenerator& rng) {
    SwellPhases phases;
    for (double SwellPhases::*each :
         {&SwellPhases::unused, &SwellPhases::surge, &SwellPhases::slowYaw, &SwellPhases::quickYaw,
          &SwellPhases::currentSpeed, &SwellPhases::currentDirection, &SwellPhases::slowDepth,
          &SwellPhases::quickDepth})
        phases.*each = rng.halfOpen(0, twoPi);
    return phases;
}

SailingSimulation::SailingSimulation(SailingProgram program, const SailingEnvironment& environment,
                                     std::uint64_t seed)
    : rng{seed},
      program(program),
      environment(environment),
      wind(rng),
      phase(SwellPhases::drawn(rng)) {
    loadLeg(0);
    wind.speedSmooth = wind.zoneSpeed;
    wind.shift = wind.zoneShift;
    wind.compute(0);
    performanceLength = rng.closed(900, 1800);
}

void SailingSimulation::prime(BoatState& state, platform::WallTime now) {
    home = {state.latitude, state.longitude};
    theta = thetaTarget = helmAngle();
    stw = Polar::speed(targetAngle(), wind.speed) * crewFactor();
    compose(heading(), state, now);
}

void SailingSimulation::step(double dt, BoatState& state, platform::WallTime now) {
    if (!(dt > 0 && dt < 5)) return;
    time += dt;
    if (!home) home = {state.latitude, state.longitude};
    if (needsResync) resync(state);
    wind.approachZone(dt);
    wind.compute(time);
    advanceLeg(dt);
    applySideRule(state);
    advanceBoard(dt, state);
    helm(dt);
    advanceCrew(dt);
    const double newHeading = heading();
    advanceSpeed(dt, newHeading);
    compose(newHeading, state, now);
    state.integratePosition(dt);
}

bool SailingSimulation::triggerManeuver(Maneuver maneuver) {
    if (maneuvering) return false;
    leg.sail = currentSail = maneuver == Maneuver::tack ? PointOfSail::beat : PointOfSail::run;
    leg.duration = 600;
    legElapsed = 0;
    legNeedsSideCheck = false;
    boardElapsed = 0;
    boardLength = drawBoardLength();
    request(-side, maneuver);
    return true;
}

void SailingSimulation::setEnvironment(const SailingEnvironment& newEnvironment) {
    if (newEnvironment == environment) return;
    environment = newEnvironment;
    wind.zoneSpeed = environment.zoneWind(leg.windFraction);
    wind.zoneShift = leg.shift;
}

void SailingSimulation::loadLeg(std::int64_t index) {
    const LegTemplate plan = legTemplate(program, index);
    const double jitter = rng.closed(-0.08, 0.08);
    const double factor = rng.closed(0.9, 1.1);
    const double shift = rng.closed(-5, 5);
    const double fraction = std::clamp((plan.nominalWind - 10) / 6 + jitter, 0.0, 1.0);
    leg = {plan.sail, plan.duration * factor, fraction, shift};
    currentSail = plan.sail;
    legElapsed = 0;
    legSideRule = plan.sideRule;
    legNeedsSideCheck = true;
    wind.zoneSpeed = environment.zoneWind(fraction);
    wind.zoneShift = shift;
    boardElapsed = 0;
    boardLength = drawBoardLength();
}

void SailingSimulation::request(double newSide, std::optional<Maneuver> forced) {
    if (newSide == side || maneuvering) return;
    theta = wrap360(theta);
    const double target = targetAngle();
    const double offTheWind = theta < 180 ? theta : 360 - theta;
    const bool windwardIsShorter = target + offTheWind <= (180 - target) + (180 - offTheWind);
    maneuverIsTack = forced ? *forced == Maneuver::tack : windwardIsShorter;
    if (side > 0)
        thetaTarget = maneuverIsTack ? -target : 360 - target;
    else
        thetaTarget = maneuverIsTack ? target + 360 : target;
    maneuvering = true;
    maneuverSide = newSide;
    ++(maneuverIsTack ? tackCount : gybeCount);
}

std::optional<double> SailingSimulation::preferredSide(const BoatState& state) const {
    if (!home) return std::nullopt;
    const double north = (home->latitude - state.latitude) * 60;
    const double east =
        (home->longitude - state.longitude) * 60 * std::cos(radians(state.latitude));
    if (std::sqrt(north * north + east * east) <= milesNearHome) return std::nullopt;
    const double bearing = wrap360(degrees(std::atan2(east, north)));
    const auto offBearing = [bearing](double heading) {
        return std::abs(wrap180(heading - bearing));
    };
    const double onStarboard = offBearing(wrap360(wind.direction - targetAngle()));
    const double onPort = offBearing(wrap360(wind.direction + targetAngle()));
    return onStarboard <= onPort ? +1 : -1;
}

void SailingSimulation::nextPerformanceZone() {
    performanceElapsed = 0;
    performanceLength = rng.closed(900, 1800);
    stepTarget = stepTarget >= 0.995 ? rng.closed(0.94, 0.96)
                                     : std::min(stepTarget + rng.closed(0.015, 0.035), 1.0);
}

double SailingSimulation::targetAngle() const {
    return simulation::targetAngle(leg.sail, wind.speed);
}

/// Where the helm holds theta on the present side.
double SailingSimulation::helmAngle() const {
    return side > 0 ? targetAngle() : 360 - targetAngle();
}

/// The share of the polar that the boat reaches now.
double SailingSimulation::crewFactor() const {
    return environment.performance * (environment.crewSteps ? stepSmooth : 1);
}

double SailingSimulation::heading() const {
    const double w = twoPi * time;
    const double seaway = std::clamp(wind.speed / 12, 0.5, 1.5);
    const double yaw = seaway * (1.4 * std::sin(w / 6.8 + phase.slowYaw) +
                                 0.7 * std::sin(w / 3.3 + phase.quickYaw));
    return wrap360(wind.direction - theta + yaw);
}

std::optional<double> SailingSimulation::drawBoardLength() {
    if (leg.sail == PointOfSail::beat) return rng.closed(120, 240);
    if (leg.sail == PointOfSail::run) return rng.closed(150, 300);
    return std::nullopt;
}

void SailingSimulation::resync(const BoatState& state) {
    needsResync = false;
    theta = thetaTarget = wrap360(wind.direction - state.heading);
    side = theta < 180 ? +1 : -1;
    maneuvering = false;
    pendingSide.reset();
    stw = state.stw >= 0 ? state.stw : 0;
}

void SailingSimulation::advanceLeg(double dt) {
    legElapsed += dt;
    if (legElapsed >= leg.duration) loadLeg(++legIndex);
}

void SailingSimulation::applySideRule(const BoatState& state) {
    if (!legNeedsSideCheck) return;
    legNeedsSideCheck = false;
    const double rule = legSideRule == 0 ? side : legSideRule;
    const double desired = preferredSide(state).value_or(rule);
    if (maneuvering)
        pendingSide = desired;
    else
        request(desired, std::nullopt);
}

void SailingSimulation::advanceBoard(double dt, const BoatState& state) {
    if (maneuvering || !boardLength) return;
    boardElapsed += dt;
    if (boardElapsed >= *boardLength) endBoard(state);
}

void SailingSimulation::endBoard(const BoatState& state) {
    boardElapsed = 0;
    boardLength = drawBoardLength();
    if (preferredSide(state) != side) request(-side, std::nullopt);
}

void SailingSimulation::helm(double dt) {
    if (!maneuvering) thetaTarget = helmAngle();
    const double rate = maneuvering ? 7.5 : 2.2;  // degrees a second at the most
    theta += dt * std::clamp(0.9 * (thetaTarget - theta), -rate, rate);
    if (maneuvering && std::abs(thetaTarget - theta) < 2.5) endManeuver();
}

void SailingSimulation::endManeuver() {
    maneuvering = false;
    theta = wrap360(theta);
    side = maneuverSide;
    if (const auto pending = std::exchange(pendingSide, std::nullopt))
        request(*pending, std::nullopt);
}

void SailingSimulation::advanceCrew(double dt) {
    performanceElapsed += dt;
    if (performanceElapsed >= performanceLength) nextPerformanceZone();
    stepSmooth += (stepTarget - stepSmooth) * lagShare(dt, 150);
}

void SailingSimulation::advanceSpeed(double dt, double heading) {
    const double twa = wrap180(wind.direction - heading);
    const double surge =
        1 + std::min(wind.speed / 12, 1.5) * 0.02 * std::sin(twoPi * time / 7.3 + phase.surge);
    const double target = surge * Polar::speed(std::abs(twa), wind.speed) * crewFactor();
    const double tau = stw < target ? 9 : 7;  // a boat gains speed more slowly than she loses it
    stw += (target - stw) * lagShare(dt, tau);
}

void SailingSimulation::compose(double heading, BoatState& state, platform::WallTime now) const {
    const double w = twoPi * time;
    const double twa = wrap180(wind.direction - heading);
    const double sine = std::sin(radians(twa));
    const double cosine = std::cos(radians(twa));

    const double leeway = 4.5 * std::pow(std::max(cosine, 0.0), 1.5);
    const double course = radians(twa >= 0 ? heading - leeway : heading + leeway);
    const double currentSpeed = 0.5 + 0.3 * std::sin(w / 1800 + phase.currentSpeed);
    const double currentDirection = radians(100 + 30 * std::sin(w / 2400 + phase.currentDirection));
    const double east = stw * std::sin(course) + currentSpeed * std::sin(currentDirection);
    const double north = stw * std::cos(course) + currentSpeed * std::cos(currentDirection);
    const double fromAhead = wind.speed * cosine + stw;
    const double fromStarboard = wind.speed * sine;

    state.sog = std::sqrt(east * east + north * north);
    state.cog = state.sog > 0.05 ? wrap360(degrees(std::atan2(east, north))) : heading;
    state.heading = heading;
    state.stw = stw;
    state.trueWindAngle = twa;
    state.trueWindSpeed = wind.speed;
    state.apparentWindAngle = degrees(std::atan2(fromStarboard, fromAhead));
    state.apparentWindSpeed = std::sqrt(fromAhead * fromAhead + fromStarboard * fromStarboard);
    state.depth =
        22 + 9 * std::sin(w / 900 + phase.slowDepth) + 3.5 * std::sin(w / 330 + phase.quickDepth);
    state.waterTemperature = 16.5 + 0.5 * std::sin(w / 1500);
    state.gpsFix = true;
    state.satelliteCount = 11 + std::llround(2 * std::sin(w / 200));
    state.timestamp = now;
}

}  // namespace tidewright::simulation
