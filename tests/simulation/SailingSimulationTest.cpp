#include "simulation/SailingSimulation.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

#include "simulation/Angles.h"
#include "simulation/Polar.h"

namespace tidewright::simulation {
namespace {
using namespace std::chrono_literals;

constexpr platform::WallTime now = platform::WallTime{} + 11s;
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

struct SailingSimulationTest : testing::Test {
    BoatState state = BoatState::starting({});
    SailingSimulation boat = sailing(SailingProgram::beat);

    /// Under way from home, with the side rule of the first leg already applied.
    SailingSimulation sailing(SailingProgram program, std::uint64_t seed = 1) {
        SailingSimulation sailing(program, {}, seed);
        sailing.prime(state, now);
        sailing.legNeedsSideCheck = false;
        return sailing;
    }

    void step(double dt = 0.1) { boat.step(dt, state, now); }
    void sail(double seconds) {
        for (int i = 0; i < static_cast<int>(std::lround(seconds * 10)); ++i) step();
    }
    void finishManeuver() {
        for (int i = 0; boat.maneuvering && i < 1000; ++i) step();
    }

    /// The boat at so many nautical miles from home, which bears as said.
    void leaveHome(double miles, double bearing) {
        boat.home = {0, 0};
        state.latitude = -miles * std::cos(radians(bearing)) / 60;
        state.longitude = -miles * std::sin(radians(bearing)) / 60;
    }

    /// On this point of sail, in a steady zone of `speed` knots from `direction`.
    void hold(PointOfSail sail, double speed, double direction = 230) {
        boat.leg.sail = boat.currentSail = sail;
        boat.wind = {};
        boat.wind.speed = boat.wind.speedSmooth = boat.wind.zoneSpeed = speed;
        boat.wind.baseDirection = boat.wind.direction = direction;
    }

    /// On `side`, with the helm where it belongs.
    void settle(double side) {
        const double target = targetAngle(boat.leg.sail, boat.wind.speed);
        boat.side = side;
        boat.theta = boat.thetaTarget = side > 0 ? target : 360 - target;
    }

    void expectUntouched(const SailingSimulation& before) const {
        EXPECT_EQ(boat.rng.state, before.rng.state);
        EXPECT_EQ(boat.time, before.time);
        EXPECT_EQ(boat.theta, before.theta);
        EXPECT_EQ(boat.legElapsed, before.legElapsed);
        EXPECT_EQ(boat.leg.sail, before.leg.sail);
        EXPECT_EQ(boat.leg.duration, before.leg.duration);
        EXPECT_EQ(boat.currentSail, before.currentSail);
        EXPECT_EQ(boat.legNeedsSideCheck, before.legNeedsSideCheck);
        EXPECT_EQ(boat.side, before.side);
        EXPECT_EQ(boat.maneuvering, before.maneuvering);
        EXPECT_EQ(boat.maneuverSide, before.maneuverSide);
        EXPECT_EQ(boat.maneuverIsTack, before.maneuverIsTack);
        EXPECT_EQ(boat.thetaTarget, before.thetaTarget);
        EXPECT_EQ(boat.tackCount, before.tackCount);
        EXPECT_EQ(boat.gybeCount, before.gybeCount);
        EXPECT_EQ(boat.boardLength, before.boardLength);
        EXPECT_EQ(boat.boardElapsed, before.boardElapsed);
        EXPECT_EQ(boat.stw, before.stw);
        EXPECT_EQ(boat.statusLine(), before.statusLine());
    }
};

TEST_F(SailingSimulationTest, sailsTheSameRunFromTheSameSeed) {
    SailingSimulation twin = sailing(SailingProgram::beat);
    BoatState twinState = state;
    for (int i = 0; i < 20000; ++i) {
        step(0.3);
        twin.step(0.3, twinState, now);
    }
    EXPECT_EQ(state, twinState);
    EXPECT_EQ(boat.rng.state, twin.rng.state);
    EXPECT_GT(boat.tackCount, 10);
}

TEST_F(SailingSimulationTest, sailsAnotherRunFromAnotherSeed) {
    const SailingSimulation other = sailing(SailingProgram::beat, 2);
    EXPECT_NE(other.phase, boat.phase);
    EXPECT_NE(other.leg.duration, boat.leg.duration);
}

TEST_F(SailingSimulationTest, drawsWindThenPhasesThenLegThenCrewStep) {
    SeededGenerator rng{1};
    const WindModel wind(rng);
    EXPECT_EQ(boat.wind.p, wind.p);
    EXPECT_EQ(boat.phase, SwellPhases::drawn(rng));
    const double jitter = rng.closed(-0.08, 0.08);
    EXPECT_EQ(boat.leg.windFraction, 2.0 / 6 + jitter);
    EXPECT_EQ(boat.leg.duration, 600 * rng.closed(0.9, 1.1));
    EXPECT_EQ(boat.leg.shift, rng.closed(-5, 5));
    EXPECT_EQ(boat.boardLength, rng.closed(120, 240));
    EXPECT_EQ(boat.performanceLength, rng.closed(900, 1800));
    EXPECT_EQ(boat.rng.state, rng.state);
}

TEST_F(SailingSimulationTest, beginsItsFirstZoneWithoutLag) {
    EXPECT_EQ(boat.wind.speedSmooth, boat.wind.zoneSpeed);
    EXPECT_EQ(boat.wind.shift, boat.wind.zoneShift);
    EXPECT_NEAR(boat.wind.speed, boat.wind.zoneSpeed, 0.08 * boat.wind.zoneSpeed);
}

TEST_F(SailingSimulationTest, changesNothingOnAStepOfNoTimeOrTooMuch) {
    boat.needsResync = true;
    const SailingSimulation before = boat;
    const BoatState stateBefore = state;
    for (const double dt : {0.0, -0.1, 5.0, 60.0, infinity, -infinity, notANumber}) step(dt);
    expectUntouched(before);
    EXPECT_TRUE(boat.needsResync);
    EXPECT_EQ(state, stateBefore);
    step(4.9);
    EXPECT_EQ(boat.time, 4.9);
}

TEST_F(SailingSimulationTest, isPrimedOnEitherTackAtTheSpeedOfItsPolar) {
    hold(PointOfSail::beat, 10);
    for (const auto& [side, theta] : {std::pair{+1.0, 44.0}, {-1.0, 316.0}}) {
        boat.side = side;
        boat.prime(state, now);
        EXPECT_DOUBLE_EQ(boat.theta, theta);
        EXPECT_EQ(boat.thetaTarget, boat.theta);
        EXPECT_DOUBLE_EQ(boat.stw, Polar::speed(44, 10) * 0.94);
    }
    boat.environment = {.performance = 0.5, .crewSteps = false};
    boat.prime(state, now);
    EXPECT_DOUBLE_EQ(boat.stw, Polar::speed(44, 10) * 0.5);
}

TEST_F(SailingSimulationTest, showsLeewayAndCurrentInTheCourseOverGround) {
    hold(PointOfSail::beat, 10);
    boat.phase = {};
    boat.prime(state, now);
    const double course = radians(186 - 4.5 * std::pow(std::cos(radians(44)), 1.5));
    const double east = boat.stw * std::sin(course) + 0.5 * std::sin(radians(100));
    const double north = boat.stw * std::cos(course) + 0.5 * std::cos(radians(100));
    EXPECT_NEAR(state.heading, 186, 1e-9);
    EXPECT_NEAR(state.trueWindAngle, 44, 1e-9);
    EXPECT_NEAR(state.sog, std::hypot(east, north), 1e-9);
    EXPECT_NEAR(state.cog, wrap360(degrees(std::atan2(east, north))), 1e-9);
}

TEST_F(SailingSimulationTest, slipsAwayFromTheWindOnPortTackToo) {
    hold(PointOfSail::beat, 10);
    boat.phase = {};
    boat.side = -1;
    boat.prime(state, now);
    const double course = radians(274 + 4.5 * std::pow(std::cos(radians(44)), 1.5));
    const double east = boat.stw * std::sin(course) + 0.5 * std::sin(radians(100));
    EXPECT_NEAR(state.trueWindAngle, -44, 1e-9);
    EXPECT_NEAR(state.sog * std::sin(radians(state.cog)), east, 1e-9);
}

TEST_F(SailingSimulationTest, makesNoLeewayWithTheWindAbaftTheBeam) {
    hold(PointOfSail::broadReach, 10);
    boat.phase = {};
    boat.prime(state, now);
    const double course = radians(112);
    const double east = boat.stw * std::sin(course) + 0.5 * std::sin(radians(100));
    EXPECT_NEAR(state.sog * std::sin(radians(state.cog)), east, 1e-9);
}

TEST_F(SailingSimulationTest, feelsTheApparentWindFurtherAhead) {
    hold(PointOfSail::beamReach, 8);
    boat.phase = {};
    boat.prime(state, now);
    EXPECT_NEAR(state.apparentWindAngle, degrees(std::atan2(8, boat.stw)), 1e-9);
    EXPECT_NEAR(state.apparentWindSpeed, std::hypot(8, boat.stw), 1e-9);
    EXPECT_EQ(state.trueWindSpeed, 8);
}

TEST_F(SailingSimulationTest, yawsInTheSeawayOfTheWind) {
    boat.phase = {.slowYaw = std::numbers::pi / 2, .quickYaw = std::numbers::pi / 2};
    for (const auto& [wind, seaway] : {std::pair{12.0, 1.0}, {3.0, 0.5}, {40.0, 1.5}}) {
        hold(PointOfSail::beamReach, wind);
        boat.prime(state, now);
        EXPECT_NEAR(state.heading, 140 + seaway * 2.1, 1e-9);
    }
}

TEST_F(SailingSimulationTest, writesDepthTemperatureAndSatellitesByTheClock) {
    boat.phase = {};
    boat.time = 50;
    state.gpsFix = false;
    boat.prime(state, now);
    EXPECT_EQ(state.satelliteCount, 13);
    EXPECT_NEAR(state.depth,
                22 + 9 * std::sin(2 * std::numbers::pi * 50 / 900) +
                    3.5 * std::sin(2 * std::numbers::pi * 50 / 330),
                1e-9);
    EXPECT_TRUE(state.gpsFix);
    EXPECT_EQ(state.timestamp, now);
    boat.time = 150;
    boat.prime(state, now);
    EXPECT_EQ(state.satelliteCount, 9);
    boat.time = 375;
    boat.prime(state, now);
    EXPECT_NEAR(state.waterTemperature, 17, 1e-9);
}

TEST_F(SailingSimulationTest, hasNoBoardsOnAReachAndChangesSideFromLegToLeg) {
    boat = sailing(SailingProgram::reach);
    boat.legNeedsSideCheck = true;
    const BoatState home = state;
    for (std::int64_t leg = 0; leg < 4; ++leg) {
        for (boat.legElapsed = 0; boat.legElapsed < 60; state = home) step();
        EXPECT_EQ(boat.side, leg % 2 == 0 ? +1 : -1);
        EXPECT_EQ(boat.tackCount + boat.gybeCount, leg);
        EXPECT_FALSE(boat.boardLength);
        EXPECT_EQ(boat.statusLine().find("prochain"), std::string::npos);
        boat.loadLeg(leg + 1);
    }
}

TEST_F(SailingSimulationTest, prefersNoSideWithinFourMilesOfHome) {
    leaveHome(4, 0);
    EXPECT_FALSE(boat.preferredSide(state));
    leaveHome(4.001, 0);
    EXPECT_TRUE(boat.preferredSide(state));
    boat.home.reset();
    EXPECT_FALSE(boat.preferredSide(state));
}

TEST_F(SailingSimulationTest, measuresTheWayHomeAtItsOwnLatitudeAndNotAtThatOfHome) {
    boat.home = {60 - 3.0 / 60, 0};
    state.latitude = 60;
    state.longitude = 5.288 / 60;  // 3.999 miles off, and 4.001 if degrees were as long as at home
    EXPECT_FALSE(boat.preferredSide(state));
    state.longitude = 5.3 / 60;
    EXPECT_TRUE(boat.preferredSide(state));
}

TEST_F(SailingSimulationTest, prefersTheSideThatPointsNearerHome) {
    hold(PointOfSail::beat, 12);
    leaveHome(6, 187);
    EXPECT_EQ(boat.preferredSide(state), +1);
    leaveHome(6, 273);
    EXPECT_EQ(boat.preferredSide(state), -1);
}

TEST_F(SailingSimulationTest, prefersStarboardTackWhenBothPointHomeAlike) {
    hold(PointOfSail::beamReach, 12, 0);
    leaveHome(6, 0);
    EXPECT_EQ(boat.preferredSide(state), +1);
}

TEST_F(SailingSimulationTest, changesSideAtEveryBoardsEndNearHome) {
    const BoatState home = state;
    for (const double side : {-1.0, +1.0, -1.0}) {
        boat.boardElapsed = *boat.boardLength;
        step();
        EXPECT_TRUE(boat.maneuvering);
        EXPECT_EQ(boat.maneuverSide, side);
        finishManeuver();
        EXPECT_EQ(boat.side, side);
        EXPECT_TRUE(*boat.boardLength >= 120 && *boat.boardLength <= 240);
        EXPECT_LT(boat.boardElapsed, 1);
        state = home;
    }
    EXPECT_EQ(boat.tackCount, 3);
}

TEST_F(SailingSimulationTest, takesAFreshBoardOnTheSameSideFarFromHome) {
    hold(PointOfSail::beat, 12);
    settle(+1);
    leaveHome(6, 187);
    const auto length = boat.boardLength;
    boat.boardElapsed = *length;
    step();
    EXPECT_NE(boat.boardLength, length);
    EXPECT_EQ(boat.boardElapsed, 0);
    EXPECT_FALSE(boat.maneuvering);
    EXPECT_EQ(boat.tackCount + boat.gybeCount, 0);
}

TEST_F(SailingSimulationTest, turnsForHomeAtTheEndOfABoardFarFromIt) {
    hold(PointOfSail::beat, 12);
    settle(+1);
    leaveHome(6, 273);
    boat.boardElapsed = *boat.boardLength;
    step();
    EXPECT_TRUE(boat.maneuvering);
    EXPECT_EQ(boat.tackCount, 1);
}

TEST_F(SailingSimulationTest, countsNoBoardDuringAManoeuvre) {
    boat.triggerManeuver(Maneuver::tack);
    boat.boardElapsed = *boat.boardLength + 1;
    step();
    EXPECT_EQ(boat.boardElapsed, *boat.boardLength + 1);
    EXPECT_EQ(boat.tackCount, 1);
}

TEST_F(SailingSimulationTest, drawsLongerBoardsWhenRunning) {
    for (std::uint64_t seed = 0; seed < 50; ++seed) {
        const auto board = sailing(SailingProgram::run, seed).boardLength;
        EXPECT_TRUE(*board >= 150 && *board <= 300);
    }
}

TEST_F(SailingSimulationTest, tacksThroughTheWindToTheOtherSide) {
    hold(PointOfSail::beat, 8.75);
    settle(+1);
    boat.request(-1, std::nullopt);
    EXPECT_TRUE(boat.maneuverIsTack);
    EXPECT_DOUBLE_EQ(boat.thetaTarget, -45);
    EXPECT_EQ(boat.side, +1);
    for (int i = 0; i < 80; ++i) step();
    EXPECT_LT(boat.theta, 0);
    finishManeuver();
    EXPECT_NEAR(boat.theta, 315, 2.5);
    EXPECT_EQ(boat.side, -1);
}

TEST_F(SailingSimulationTest, tacksBackPastAFullTurn) {
    hold(PointOfSail::beat, 8.75);
    settle(-1);
    boat.request(+1, std::nullopt);
    EXPECT_DOUBLE_EQ(boat.thetaTarget, 405);
    for (int i = 0; i < 80; ++i) step();
    EXPECT_GT(boat.theta, 360);
    finishManeuver();
    EXPECT_NEAR(boat.theta, 45, 2.5);
    EXPECT_EQ(boat.side, +1);
}

TEST_F(SailingSimulationTest, gybesThroughDeadDownwindBothWays) {
    hold(PointOfSail::run, 12);
    settle(+1);
    boat.request(-1, std::nullopt);
    EXPECT_FALSE(boat.maneuverIsTack);
    EXPECT_DOUBLE_EQ(boat.thetaTarget, 210);
    finishManeuver();
    EXPECT_EQ(boat.side, -1);
    boat.request(+1, std::nullopt);
    EXPECT_DOUBLE_EQ(boat.thetaTarget, 150);
    EXPECT_EQ(boat.gybeCount, 2);
    EXPECT_EQ(boat.tackCount, 0);
}

TEST_F(SailingSimulationTest, turnsTheShorterWayAndTacksWhenBothAreAlike) {
    hold(PointOfSail::beamReach, 12);
    for (const auto& [theta, tacks] : {std::pair{90.0, true}, {89.0, true}, {91.0, false}}) {
        settle(+1);
        boat.theta = theta;
        boat.maneuvering = false;
        boat.request(-1, std::nullopt);
        EXPECT_EQ(boat.maneuverIsTack, tacks) << theta;
    }
}

TEST_F(SailingSimulationTest, turnsTheWayItIsForcedTo) {
    hold(PointOfSail::beat, 8.75);
    settle(+1);
    boat.request(-1, Maneuver::gybe);
    EXPECT_DOUBLE_EQ(boat.thetaTarget, 315);
    EXPECT_EQ(boat.gybeCount, 1);
}

TEST_F(SailingSimulationTest, ignoresARequestForItsOwnSideOrDuringAManoeuvre) {
    boat.request(+1, Maneuver::tack);
    EXPECT_FALSE(boat.maneuvering);
    boat.request(-1, Maneuver::tack);
    const double target = boat.thetaTarget;
    boat.request(-1, Maneuver::gybe);
    EXPECT_EQ(boat.thetaTarget, target);
    EXPECT_EQ(boat.tackCount, 1);
    EXPECT_EQ(boat.gybeCount, 0);
}

TEST_F(SailingSimulationTest, showsTheManoeuvreUntilTheHelmIsNearItsTarget) {
    hold(PointOfSail::beat, 8.75);
    settle(+1);
    boat.triggerManeuver(Maneuver::tack);
    while (boat.statusLine().find("virement de bord en cours") != std::string::npos) {
        const double before = boat.theta;
        ASSERT_GE(std::abs(boat.thetaTarget - before), 2.5);
        step();
        ASSERT_NE(boat.theta, before);
    }
    EXPECT_FALSE(boat.maneuvering);
    EXPECT_NEAR(boat.theta, 315, 2.5);
    EXPECT_NE(boat.statusLine().find("prochain virement "), std::string::npos);
}

TEST_F(SailingSimulationTest, refusesASecondManoeuvreAndDrawsNothingForIt) {
    EXPECT_TRUE(boat.triggerManeuver(Maneuver::gybe));
    step();
    const SailingSimulation before = boat;
    for (const auto refused : {Maneuver::tack, Maneuver::gybe}) {
        EXPECT_FALSE(boat.triggerManeuver(refused));
        expectUntouched(before);
    }
    EXPECT_NE(boat.statusLine().find("empannage en cours"), std::string::npos);
}

TEST_F(SailingSimulationTest, turnsTheLegIntoTenMinutesOfBeatingOrRunning) {
    boat = sailing(SailingProgram::sequence);
    boat.loadLeg(5);
    const SailingSimulation before = boat;
    boat.triggerManeuver(Maneuver::gybe);
    EXPECT_EQ(boat.leg.sail, PointOfSail::run);
    EXPECT_EQ(boat.currentSail, PointOfSail::run);
    EXPECT_EQ(boat.leg.duration, 600);
    EXPECT_EQ(boat.legElapsed, 0);
    EXPECT_FALSE(boat.legNeedsSideCheck);
    EXPECT_TRUE(*boat.boardLength >= 150 && *boat.boardLength <= 300);
    EXPECT_EQ(boat.legIndex, before.legIndex);
    EXPECT_EQ(boat.legSideRule, before.legSideRule);
    EXPECT_EQ(boat.leg.windFraction, before.leg.windFraction);
    EXPECT_EQ(boat.leg.shift, before.leg.shift);
}

TEST_F(SailingSimulationTest, turnsStraightBackWhenALegWithoutARuleBeginsDuringAManoeuvre) {
    boat.triggerManeuver(Maneuver::tack);
    step();
    boat.loadLeg(1);
    step();
    EXPECT_EQ(boat.pendingSide, +1);
    while (boat.tackCount == 1) step();
    EXPECT_EQ(boat.side, -1);
    EXPECT_TRUE(boat.maneuvering);
    EXPECT_EQ(boat.maneuverSide, +1);
    EXPECT_FALSE(boat.pendingSide);
}

TEST_F(SailingSimulationTest, forgetsAPendingSideThatItReachesAnyway) {
    boat.triggerManeuver(Maneuver::tack);
    boat.pendingSide = -1;
    finishManeuver();
    EXPECT_EQ(boat.side, -1);
    EXPECT_FALSE(boat.pendingSide);
    EXPECT_EQ(boat.tackCount, 1);
}

TEST_F(SailingSimulationTest, followsTheRuleOfALegAndKeepsItsSideWithoutOne) {
    boat = sailing(SailingProgram::sequence);
    boat.loadLeg(3);
    step();
    EXPECT_TRUE(boat.maneuvering);
    EXPECT_EQ(boat.maneuverSide, -1);
    finishManeuver();
    boat.loadLeg(4);
    step();
    EXPECT_FALSE(boat.maneuvering);
    EXPECT_EQ(boat.side, -1);
}

TEST_F(SailingSimulationTest, prefersTheWayHomeToTheRuleOfALeg) {
    boat = sailing(SailingProgram::sequence);
    boat.loadLeg(3);
    hold(PointOfSail::run, 12);
    leaveHome(6, 80);
    ASSERT_EQ(boat.preferredSide(state), +1);
    step();
    EXPECT_FALSE(boat.maneuvering);
}

TEST_F(SailingSimulationTest, goesOnToTheNextLegWhenOneHasLastedItsTime) {
    boat.legElapsed = boat.leg.duration - 0.05;
    step();
    EXPECT_EQ(boat.legIndex, 1);
    EXPECT_EQ(boat.legElapsed, 0);
    boat.legElapsed = 1e6;
    step();
    EXPECT_EQ(boat.legIndex, 2);
}

TEST_F(SailingSimulationTest, loadsALegWithoutTouchingHelmOrManoeuvre) {
    boat.triggerManeuver(Maneuver::tack);
    step();
    const SailingSimulation before = boat;
    boat.loadLeg(-1);
    EXPECT_EQ(boat.theta, before.theta);
    EXPECT_EQ(boat.thetaTarget, before.thetaTarget);
    EXPECT_EQ(boat.side, before.side);
    EXPECT_TRUE(boat.maneuvering);
    EXPECT_EQ(boat.boardElapsed, 0);
    EXPECT_TRUE(boat.legNeedsSideCheck);
    EXPECT_NEAR(boat.leg.duration, 600, 60);
    EXPECT_NEAR(boat.leg.windFraction, 0.5, 0.08);
    EXPECT_EQ(boat.wind.zoneSpeed, boat.environment.zoneWind(boat.leg.windFraction));
    EXPECT_EQ(boat.wind.zoneShift, boat.leg.shift);
}

TEST_F(SailingSimulationTest, keepsTheWindOfALegWithinTheRange) {
    bool reached = false;
    for (std::uint64_t seed = 0; seed < 20; ++seed) {
        boat.rng.state = seed;
        boat.loadLeg(1);
        EXPECT_GE(boat.leg.windFraction, 0);
        reached = reached || boat.leg.windFraction == 0;
    }
    EXPECT_TRUE(reached);
}

TEST_F(SailingSimulationTest, takesUpNewWindSlowlyAndDrawsNothingForIt) {
    const SailingSimulation before = boat;
    boat.setEnvironment({.windPreset = WindPreset::strong});
    EXPECT_EQ(boat.wind.zoneSpeed, 23 + 7 * boat.leg.windFraction);
    EXPECT_EQ(boat.wind.zoneShift, boat.leg.shift);
    EXPECT_EQ(boat.wind.speedSmooth, before.wind.speedSmooth);
    EXPECT_EQ(boat.rng.state, before.rng.state);
    sail(60);
    EXPECT_NEAR(
        boat.wind.speedSmooth,
        boat.wind.zoneSpeed - (boat.wind.zoneSpeed - before.wind.speedSmooth) * std::exp(-1), 1e-6);
}

TEST_F(SailingSimulationTest, leavesTheZoneAloneWhenTheEnvironmentIsTheSame) {
    boat.wind.zoneSpeed = 33;
    boat.setEnvironment(SailingEnvironment{});
    EXPECT_EQ(boat.wind.zoneSpeed, 33);
}

TEST_F(SailingSimulationTest, takesTheHelmOverByTheWindOfTheStepBefore) {
    boat.wind.direction = 100;
    state.heading = 40;
    boat.needsResync = true;
    step(1e-6);
    EXPECT_NEAR(boat.theta, 60, 1e-4);
    EXPECT_EQ(boat.side, +1);
    EXPECT_FALSE(boat.needsResync);
}

TEST_F(SailingSimulationTest, takesTheHelmOverOnTheTackThatTheBoatIsOn) {
    boat.triggerManeuver(Maneuver::tack);
    boat.pendingSide = +1;
    boat.wind.direction = 100;
    state.heading = 160;
    state.stw = 3;
    boat.needsResync = true;
    step(1e-6);
    EXPECT_NEAR(boat.theta, 300, 1e-4);
    EXPECT_EQ(boat.side, -1);
    EXPECT_FALSE(boat.maneuvering);
    EXPECT_FALSE(boat.pendingSide);
    EXPECT_NEAR(boat.stw, 3, 1e-4);
}

TEST_F(SailingSimulationTest, takesSternwayForNoWay) {
    state.stw = -2;
    boat.needsResync = true;
    step(1e-6);
    EXPECT_NEAR(boat.stw, 0, 1e-4);
}

TEST_F(SailingSimulationTest, turnsSlowlyUnderWayAndFasterInAManoeuvre) {
    hold(PointOfSail::run, 12);
    boat.theta = 50;
    step();
    EXPECT_NEAR(boat.theta, 50.22, 1e-9);
    boat.request(-1, std::nullopt);
    const double before = boat.theta;
    step();
    EXPECT_NEAR(std::abs(boat.theta - before), 0.75, 1e-9);
}

TEST_F(SailingSimulationTest, easesTheHelmNearItsCourse) {
    hold(PointOfSail::beamReach, 12);
    boat.theta = 89;
    step();
    EXPECT_NEAR(boat.theta, 89.09, 1e-9);
}

TEST_F(SailingSimulationTest, gainsWayMoreSlowlyThanItLosesIt) {
    SailingSimulation fast = boat;
    BoatState fastState = state;
    boat.stw = 0;
    fast.stw = 100;
    step(1);
    fast.step(1, fastState, now);
    const double target = boat.stw / (1 - std::exp(-1 / 9.0));
    EXPECT_NEAR(fast.stw, 100 + (target - 100) * (1 - std::exp(-1 / 7.0)), 1e-9);
    EXPECT_NEAR(target, 6, 2);
}

TEST_F(SailingSimulationTest, surgesInTheSeawayOfTheWind) {
    for (const auto& [wind, surge] : {std::pair{6.0, 0.01}, {12.0, 0.02}, {40.0, 0.03}}) {
        hold(PointOfSail::beamReach, wind);
        settle(+1);
        SailingSimulation crest = boat;
        SailingSimulation trough = boat;
        crest.stw = trough.stw = 0;
        crest.phase = {.surge = std::numbers::pi / 2};
        trough.phase = {.surge = -std::numbers::pi / 2};
        crest.step(0.001, state, now);
        trough.step(0.001, state, now);
        EXPECT_NEAR(crest.stw / trough.stw, (1 + surge) / (1 - surge), 1e-4);
    }
}

TEST_F(SailingSimulationTest, losesWayInATack) {
    const double before = boat.stw;
    boat.triggerManeuver(Maneuver::tack);
    finishManeuver();
    EXPECT_LT(boat.stw, 0.8 * before);
}

TEST_F(SailingSimulationTest, bettersItsCrewUntilNothingIsLeftToGain) {
    boat.nextPerformanceZone();
    EXPECT_TRUE(boat.stepTarget >= 0.955 && boat.stepTarget <= 0.975);
    EXPECT_EQ(boat.performanceElapsed, 0);
    EXPECT_TRUE(boat.performanceLength >= 900 && boat.performanceLength <= 1800);
    boat.stepTarget = 0.99;
    boat.nextPerformanceZone();
    EXPECT_EQ(boat.stepTarget, 1);
}

TEST_F(SailingSimulationTest, fallsBackFromACrewAtItsBest) {
    for (const double best : {1.0, 0.995}) {
        boat.stepTarget = best;
        boat.nextPerformanceZone();
        EXPECT_TRUE(boat.stepTarget >= 0.94 && boat.stepTarget <= 0.96);
    }
}

TEST_F(SailingSimulationTest, runsTheCrewsClockWhetherItsStepsCountOrNot) {
    boat.environment.crewSteps = false;
    boat.performanceElapsed = boat.performanceLength - 0.05;
    step();
    EXPECT_EQ(boat.performanceElapsed, 0);
    EXPECT_GT(boat.stepTarget, 0.95);
    EXPECT_NEAR(boat.stepSmooth, 0.94 + (boat.stepTarget - 0.94) * (1 - std::exp(-0.1 / 150)),
                1e-12);
}

TEST_F(SailingSimulationTest, callsHomeWhereItIsFirstStepped) {
    SailingSimulation unprimed(SailingProgram::beat, {}, 1);
    state.latitude = 10;
    unprimed.step(0.1, state, now);
    ASSERT_TRUE(unprimed.home);
    EXPECT_EQ(unprimed.home->latitude, 10);
    EXPECT_EQ(unprimed.home->longitude, -3.55);
}

TEST_F(SailingSimulationTest, movesByTheSpeedAndCourseThatItShows) {
    const double before = state.latitude;
    step(1);
    EXPECT_NEAR((state.latitude - before) * 111320,
                state.sog * 1852 / 3600 * std::cos(radians(state.cog)), 1e-6);
}

}  // namespace
}  // namespace tidewright::simulation
