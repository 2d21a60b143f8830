#include "simulation/ManualTargets.h"

#include <gtest/gtest.h>

#include <cmath>

#include "simulation/EarthModel.h"

namespace tidewright::simulation {
namespace {
using namespace std::chrono_literals;

struct ManualTargetsTest : testing::Test {
    ManualTargets targets;
    BoatState state = BoatState::starting({});

    void apply(double dt = 0.1) { applyManual(targets, dt, state, platform::WallTime{} + 7s); }
};

TEST_F(ManualTargetsTest, beginsAtAComfortableReach) {
    EXPECT_EQ(targets, (ManualTargets{6, 120, 15, 40, 12, 16.5}));
}

TEST_F(ManualTargetsTest, showsOnTheInstrumentsAtOnce) {
    targets = {
        .sog = 4, .heading = 200, .windSpeed = 20, .windAngle = -60, .depth = 3, .waterTemp = 9};
    apply();
    EXPECT_EQ(state.sog, 4);
    EXPECT_EQ(state.stw, 4);
    EXPECT_EQ(state.cog, 200);
    EXPECT_EQ(state.heading, 200);
    EXPECT_EQ(state.apparentWindSpeed, 20);
    EXPECT_EQ(state.apparentWindAngle, -60);
    EXPECT_EQ(state.depth, 3);
    EXPECT_EQ(state.waterTemperature, 9);
    EXPECT_EQ(state.timestamp, platform::WallTime{} + 7s);
}

TEST_F(ManualTargetsTest, movesTheBoatByTheNewSpeedAndCourse) {
    targets = {.sog = 6, .heading = 90};
    apply(1);
    const double metres = 6 * 1852.0 / 3600;
    EXPECT_NEAR(state.longitude, -3.55 + metres / metresPerDegreeOfLongitude(47.4), 1e-12);
    EXPECT_NEAR(state.latitude, 47.4, 1e-12);
}

TEST_F(ManualTargetsTest, wrapsTheHeadingToOneTurn) {
    targets.heading = -30;
    apply();
    EXPECT_EQ(state.heading, 330);
    EXPECT_EQ(state.cog, 330);
    targets.heading = 360;
    apply();
    EXPECT_EQ(state.heading, 0);
}

TEST_F(ManualTargetsTest, wrapsTheWindAngleToEitherSide) {
    for (const auto& [dialled, shown] :
         {std::pair{270.0, -90.0}, {180.0, 180.0}, {-180.0, -180.0}, {-200.0, 160.0}}) {
        targets.windAngle = dialled;
        apply();
        EXPECT_EQ(state.apparentWindAngle, shown);
    }
}

TEST_F(ManualTargetsTest, worksTheTrueWindOutOfTheApparentOne) {
    targets = {.sog = 10, .windSpeed = 10, .windAngle = 450};
    apply();
    EXPECT_NEAR(state.trueWindAngle, 135, 1e-9);
    EXPECT_NEAR(state.trueWindSpeed, std::sqrt(200), 1e-9);
}

TEST_F(ManualTargetsTest, findsAFixAndLeavesTheSatellitesAlone) {
    state.gpsFix = false;
    state.satelliteCount = 9;
    apply();
    EXPECT_TRUE(state.gpsFix);
    EXPECT_EQ(state.satelliteCount, 9);
}

}  // namespace
}  // namespace tidewright::simulation
