#include "simulation/AnchorSimulation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "simulation/EarthModel.h"

namespace tidewright::simulation {
namespace {
using namespace std::chrono_literals;

constexpr platform::WallTime now = platform::WallTime{} + 9s;

struct AnchorSimulationTest : testing::Test {
    AnchorSettings settings;
    BoatState state = BoatState::starting({});

    AnchorSimulation drop() const { return {state, settings}; }

    void lie(AnchorSimulation& anchor, double seconds, double dt = 0.5) {
        for (double time = 0; time < seconds - dt / 2; time += dt)
            anchor.step(dt, settings, state, now);
    }

    static double scope(const AnchorSimulation& anchor) {
        return std::hypot(anchor.east, anchor.north);
    }
    static double bearing(const AnchorSimulation& anchor) {
        return wrap360(degrees(std::atan2(anchor.east, anchor.north)));
    }
    double windDirection() const { return wrap360(state.heading + state.trueWindAngle); }
};

TEST_F(AnchorSimulationTest, beginsInAFreshBreezeOnATautChain) {
    EXPECT_EQ(settings, (AnchorSettings{16, 230, false, 35, 45, true, false, 0.4}));
}

TEST_F(AnchorSimulationTest, dropsTheAnchorStraightUpwindOfTheBoat) {
    const AnchorSimulation anchor = drop();
    EXPECT_NEAR(bearing(anchor), 50, 1e-9);
    EXPECT_NEAR(scope(anchor), 36.9, 1e-9);
    EXPECT_NEAR(anchor.anchorLatitude, 47.4 - anchor.north / 111320, 1e-12);
    EXPECT_NEAR(anchor.anchorLongitude, -3.55 - anchor.east / metresPerDegreeOfLongitude(47.4),
                1e-12);
    EXPECT_EQ(anchor.previousCourse, 120);
    EXPECT_EQ(anchor.elapsed, 0);
}

TEST_F(AnchorSimulationTest, leavesTheBoatNearlyStillWhereTheAnchorIsDropped) {
    AnchorSimulation anchor = drop();
    anchor.step(0.1, settings, state, now);
    EXPECT_LT(state.sog, 0.01);
    EXPECT_NEAR(state.latitude, 47.4, 1e-8);
    EXPECT_NEAR(state.longitude, -3.55, 1e-8);
}

TEST_F(AnchorSimulationTest, leavesTheShiftOutOfTheDrop) {
    const AnchorSimulation steady = drop();
    settings.shiftingWind = true;
    settings.shiftAmplitude = 90;
    EXPECT_EQ(drop().east, steady.east);
    EXPECT_EQ(drop().north, steady.north);
}

TEST_F(AnchorSimulationTest, shiftsTheWindFromItsFirstStepOn) {
    settings.shiftingWind = true;
    settings.shiftAmplitude = 90;
    AnchorSimulation anchor = drop();
    anchor.step(4, settings, state, now);
    EXPECT_NEAR(windDirection(), 230 + 90 * std::sin(2 * std::numbers::pi * 4 / 120), 1e-9);
}

TEST_F(AnchorSimulationTest, settlesNearTheEndOfATautChain) {
    settings.chainTaut = false;
    AnchorSimulation anchor = drop();
    settings.chainTaut = true;
    lie(anchor, 65 * 10);
    EXPECT_NEAR(scope(anchor), 36.9, 0.4);
    EXPECT_NEAR(bearing(anchor), 50, 8);
}

TEST_F(AnchorSimulationTest, settlesNearTheAnchorOnASlackChain) {
    AnchorSimulation anchor = drop();
    settings.chainTaut = false;
    lie(anchor, 65 * 10);
    EXPECT_NEAR(scope(anchor), 12.6, 0.1);
    EXPECT_NEAR(bearing(anchor), 50, 3);
}

TEST_F(AnchorSimulationTest, reactsMoreSlowlyOnASlackChain) {
    for (const auto& [taut, tau] : {std::pair{true, 18.0}, {false, 35.0}}) {
        settings = {.windDirection = 230, .chainTaut = taut};
        AnchorSimulation anchor = drop();
        const AnchorSimulation before = anchor;
        settings.windDirection = 50;  // the boat has twice her scope to go
        anchor.step(1, settings, state, now);
        const double moved = std::hypot(anchor.east - before.east, anchor.north - before.north);
        EXPECT_NEAR(moved / scope(before), 2 * (1 - std::exp(-1 / tau)), 0.001);
    }
}

TEST_F(AnchorSimulationTest, yawsAroundDownwindInTheSwing) {
    AnchorSimulation anchor = drop();
    lie(anchor, 65 * 3);
    double least = 360;
    double most = 0;
    for (int i = 0; i < 650; ++i) {
        lie(anchor, 1);
        least = std::min(least, bearing(anchor));
        most = std::max(most, bearing(anchor));
    }
    const double lagged = 8 / std::hypot(1, 2 * std::numbers::pi / 65 * 18);
    EXPECT_NEAR(most, 50 + lagged, 0.5);
    EXPECT_NEAR(least, 50 - lagged, 0.5);
}

TEST_F(AnchorSimulationTest, takesAChainBetweenFiveAndTwoHundredMetres) {
    settings.chainLength = 2;
    EXPECT_NEAR(scope(drop()), 0.82 * 5, 1e-9);
    settings.chainLength = 500;
    EXPECT_NEAR(scope(drop()), 0.82 * 200, 1e-9);
    settings.chainTaut = false;
    EXPECT_NEAR(scope(drop()), 0.28 * 200, 1e-9);
}

TEST_F(AnchorSimulationTest, dragsTheAnchorAndTheBoatDownwind) {
    settings.dragging = true;
    AnchorSimulation anchor = drop();
    const AnchorSimulation before = anchor;
    lie(anchor, 100);
    const double north = (anchor.anchorLatitude - before.anchorLatitude) * 111320;
    const double east = (anchor.anchorLongitude - before.anchorLongitude) *
                        metresPerDegreeOfLongitude(before.anchorLatitude);
    EXPECT_NEAR(std::hypot(east, north), 20.58, 0.01);
    EXPECT_NEAR(wrap360(degrees(std::atan2(east, north))), 50, 0.01);
    EXPECT_NEAR((state.latitude - 47.4) * 111320, north, 5);
}

TEST_F(AnchorSimulationTest, dragsNoFasterThanThreeKnotsAndNeverBack) {
    settings.dragging = true;
    settings.windDirection = 180;
    for (const auto& [speed, metres] : {std::pair{10.0, 3 * 1852 / 3600.0}, {-1.0, 0.0}}) {
        settings.dragSpeed = speed;
        AnchorSimulation anchor = drop();
        const double before = anchor.anchorLatitude;
        anchor.step(1, settings, state, now);
        EXPECT_NEAR((anchor.anchorLatitude - before) * 111320, metres, 1e-6);
    }
}

TEST_F(AnchorSimulationTest, keepsWhereTheAnchorWasDraggedTo) {
    settings.dragging = true;
    AnchorSimulation anchor = drop();
    lie(anchor, 10);
    const AnchorSimulation dragged = anchor;
    settings.dragging = false;
    lie(anchor, 10);
    EXPECT_EQ(anchor.anchorLatitude, dragged.anchorLatitude);
    EXPECT_EQ(anchor.anchorLongitude, dragged.anchorLongitude);
}

TEST_F(AnchorSimulationTest, keepsItsCourseWhileNearlyStill) {
    settings.chainTaut = false;
    AnchorSimulation anchor = drop();
    anchor.step(0.1, settings, state, now);
    EXPECT_LE(state.sog, 0.005);
    EXPECT_EQ(state.cog, 120);
}

TEST_F(AnchorSimulationTest, takesTheCourseOfTheSlowestSwing) {
    AnchorSimulation anchor = drop();
    settings.windDirection += 0.2;  // the boat swings a little, to the south-east
    anchor.step(1, settings, state, now);
    EXPECT_GT(state.sog, 0.005);
    EXPECT_LT(state.sog, 0.5);
    EXPECT_NEAR(state.cog, 140, 5);
}

TEST_F(AnchorSimulationTest, reportsTheSpeedAndCourseOfItsMotion) {
    AnchorSimulation anchor = drop();
    settings.windDirection = 50;  // the boat swings right through the anchor
    const BoatState before = state;
    anchor.step(1, settings, state, now);
    const double metres = 2 * 36.9 * (1 - std::exp(-1 / 18.0));
    EXPECT_NEAR(state.sog, metres * 3600 / 1852, 0.05);
    EXPECT_NEAR(state.cog, 230, 1);
    EXPECT_LT(state.latitude, before.latitude);
    EXPECT_LT(state.longitude, before.longitude);
}

TEST_F(AnchorSimulationTest, shiftsTheWindToAndFroOverTwoMinutes) {
    settings.shiftingWind = true;
    AnchorSimulation anchor = drop();
    lie(anchor, 30);
    EXPECT_NEAR(windDirection(), 265, 1e-6);
    EXPECT_NEAR(state.heading, 265, 3);
    lie(anchor, 15);
    EXPECT_GT(bearing(anchor), 60);
    lie(anchor, 45);
    EXPECT_NEAR(windDirection(), 195, 1e-6);
    EXPECT_NEAR(state.heading, 195, 3);
    lie(anchor, 15);
    EXPECT_LT(bearing(anchor), 40);
    lie(anchor, 15);
    EXPECT_NEAR(windDirection(), 230, 1e-6);
}

TEST_F(AnchorSimulationTest, holdsTheWindWhenItDoesNotShift) {
    AnchorSimulation anchor = drop();
    lie(anchor, 30);
    EXPECT_NEAR(windDirection(), 230, 1e-9);
}

TEST_F(AnchorSimulationTest, keepsTheWindOnTheBow) {
    AnchorSimulation anchor = drop();
    for (int i = 1; i <= 100; ++i) {
        anchor.step(0.5, settings, state, now);
        EXPECT_NEAR(state.apparentWindAngle, -3 * std::sin(2 * std::numbers::pi * i / 2 / 21),
                    1e-9);
        EXPECT_EQ(state.trueWindAngle, state.apparentWindAngle);
    }
}

TEST_F(AnchorSimulationTest, feelsAWindOfNoneToFiftyKnots) {
    AnchorSimulation anchor = drop();
    for (const auto& [set, felt] : {std::pair{16.0, 16.0}, {80.0, 50.0}, {-5.0, 0.0}}) {
        settings.windSpeed = set;
        anchor.step(0.1, settings, state, now);
        EXPECT_EQ(state.trueWindSpeed, felt);
        EXPECT_EQ(state.apparentWindSpeed, felt);
    }
}

TEST_F(AnchorSimulationTest, takesAWindDirectionOfAnySize) {
    const AnchorSimulation once = drop();
    settings.windDirection += 720;
    EXPECT_NEAR(drop().east, once.east, 1e-9);
    settings.windDirection = -130;
    AnchorSimulation anchor = drop();
    anchor.step(0.1, settings, state, now);
    EXPECT_NEAR(windDirection(), 230, 1e-9);
}

TEST_F(AnchorSimulationTest, leavesDepthTemperatureAndSatellitesAlone) {
    AnchorSimulation anchor = drop();
    state.gpsFix = false;
    state.depth = 3;
    state.waterTemperature = 8;
    state.satelliteCount = 4;
    anchor.step(0.1, settings, state, now);
    EXPECT_TRUE(state.gpsFix);
    EXPECT_EQ(state.stw, 0);
    EXPECT_EQ(state.depth, 3);
    EXPECT_EQ(state.waterTemperature, 8);
    EXPECT_EQ(state.satelliteCount, 4);
    EXPECT_EQ(state.timestamp, now);
}

TEST_F(AnchorSimulationTest, changesNothingOnAStepOfNoTimeOrTooMuch) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
    settings.dragging = true;
    AnchorSimulation anchor = drop();
    const BoatState before = state;
    for (const double dt : {0.0, -0.1, 5.0, 60.0, infinity, -infinity, notANumber})
        anchor.step(dt, settings, state, now);
    EXPECT_EQ(state, before);
    EXPECT_EQ(anchor.elapsed, 0);
    EXPECT_EQ(anchor.anchorLatitude, drop().anchorLatitude);
    anchor.step(4.9, settings, state, now);
    EXPECT_EQ(anchor.elapsed, 4.9);
}

TEST_F(AnchorSimulationTest, countsAMetreToTheDegreeAtThePole) {
    state.latitude = 90;
    AnchorSimulation anchor = drop();
    EXPECT_NEAR(anchor.anchorLongitude, -3.55 - anchor.east, 1e-9);
    settings.dragging = true;
    settings.windDirection = 270;
    anchor.anchorLatitude = 90;
    const double before = anchor.anchorLongitude;
    anchor.step(1, settings, state, now);
    EXPECT_NEAR(anchor.anchorLongitude, before + 0.4 * 1852 / 3600, 1e-9);
    EXPECT_NEAR(state.longitude, anchor.anchorLongitude + anchor.east, 1e-9);
}

}  // namespace
}  // namespace tidewright::simulation
