#include "simulation/BoatState.h"

#include <gtest/gtest.h>

#include "simulation/EarthModel.h"

namespace tidewright::simulation {
namespace {
using namespace std::chrono_literals;

constexpr double metres = 6 * 1852.0 / 3600;  // in a second, at six knots

struct BoatStateTest : testing::Test {
    BoatState state = BoatState::starting(platform::WallTime{} + 5s);

    void head(double latitude, double longitude, double cog) {
        state.latitude = latitude;
        state.longitude = longitude;
        state.sog = 6;
        state.cog = cog;
    }
};

TEST_F(BoatStateTest, beginsOffQuiberon) {
    EXPECT_EQ(state, (BoatState{47.4, -3.55, 6, 120, 125, 5.8, 40, 15, 55, 12, 12, 16.5, true, 11,
                                platform::WallTime{} + 5s}));
}

TEST_F(BoatStateTest, differsByAnyOneOfItsFields) {
    BoatState other = state;
    other.satelliteCount = 12;
    EXPECT_NE(other, state);
    other = state;
    other.timestamp += 1ns;
    EXPECT_NE(other, state);
    other = state;
    other.gpsFix = false;
    EXPECT_NE(other, state);
}

TEST_F(BoatStateTest, movesEastByTheLengthOfADegreeThere) {
    head(47.4, -3.55, 90);
    state.integratePosition(1);
    EXPECT_NEAR(state.longitude, -3.55 + metres / metresPerDegreeOfLongitude(47.4), 1e-12);
    EXPECT_NEAR(state.latitude, 47.4, 1e-12);
}

TEST_F(BoatStateTest, movesSouthWestByBothComponents) {
    head(60, 0, 225);
    state.integratePosition(1);
    EXPECT_NEAR(state.latitude, 60 - metres * std::sqrt(0.5) / 111320, 1e-12);
    EXPECT_NEAR(state.longitude, -metres * std::sqrt(0.5) / 55660, 1e-12);
}

TEST_F(BoatStateTest, movesNothingButItsPosition) {
    const BoatState before = state;
    state.integratePosition(1);
    EXPECT_NE(state.latitude, before.latitude);
    state.latitude = before.latitude;
    state.longitude = before.longitude;
    EXPECT_EQ(state, before);
}

TEST_F(BoatStateTest, keepsItsLongitudeAtThePoles) {
    for (const double pole : {90.0, -90.0}) {
        head(pole, 12, 90);
        state.integratePosition(1);
        EXPECT_EQ(state.longitude, 12);
    }
}

TEST_F(BoatStateTest, keepsItsLongitudeAMetreOrLessToTheDegree) {
    head(degrees(std::acos(0.999 / 111320)), 12, 90);
    state.integratePosition(1);
    EXPECT_EQ(state.longitude, 12);
    head(degrees(std::acos(1.001 / 111320)), 12, 90);
    state.integratePosition(1);
    EXPECT_GT(state.longitude, 14);
}

TEST_F(BoatStateTest, sailsPastTheDateLineWithoutTurningOver) {
    head(0, 179.99999, 90);
    state.integratePosition(1);
    EXPECT_GT(state.longitude, 180);
    head(0, -179.99999, 270);
    state.integratePosition(1);
    EXPECT_LT(state.longitude, -180);
}

}  // namespace
}  // namespace tidewright::simulation
