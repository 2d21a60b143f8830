#include "simulation/Angles.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tidewright::simulation {
namespace {

TEST(AnglesTest, measuresInRadiansAndBack) {
    EXPECT_DOUBLE_EQ(radians(180), std::numbers::pi);
    EXPECT_DOUBLE_EQ(degrees(std::numbers::pi / 2), 90);
}

TEST(AnglesTest, wrapsToOneTurn) {
    EXPECT_EQ(wrap360(0), 0);
    EXPECT_EQ(wrap360(360), 0);
    EXPECT_EQ(wrap360(725), 5);
    EXPECT_EQ(wrap360(-30), 330);
    EXPECT_EQ(wrap360(-725), 355);
}

TEST(AnglesTest, wrapsTheSmallestNegativeAngleToAFullTurn) {
    EXPECT_EQ(wrap360(-1e-14), 360.0);
}

TEST(AnglesTest, keepsTheSignOfZero) {
    EXPECT_TRUE(std::signbit(wrap360(-0.0)));
    EXPECT_TRUE(std::signbit(wrap360(-360)));
}

TEST(AnglesTest, wrapsToHalfATurnEitherWay) {
    EXPECT_EQ(wrap180(190), -170);
    EXPECT_EQ(wrap180(-190), 170);
    EXPECT_EQ(wrap180(270), -90);
    EXPECT_EQ(wrap180(-270), 90);
    EXPECT_EQ(wrap180(730), 10);
}

TEST(AnglesTest, leavesBothEndsOfHalfATurnAsTheyAre) {
    EXPECT_EQ(wrap180(180), 180);
    EXPECT_EQ(wrap180(-180), -180);
    EXPECT_EQ(wrap180(540), 180);
    EXPECT_EQ(wrap180(-540), -180);
}

}  // namespace
}  // namespace tidewright::simulation
