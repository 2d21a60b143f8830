#include "simulation/Polar.h"

#include <gtest/gtest.h>

namespace tidewright::simulation {
namespace {

TEST(PolarTest, isZeroHeadToWind) {
    for (const double wind : {0.0, 6.0, 13.7, 30.0, 50.0}) EXPECT_EQ(Polar::speed(0, wind), 0);
}

TEST(PolarTest, isZeroWithoutWind) {
    for (const double angle : {0.0, 42.0, 90.0, 180.0}) EXPECT_EQ(Polar::speed(angle, 0), 0);
    EXPECT_EQ(Polar::speed(90, -5), 0);
}

TEST(PolarTest, isTheTableAtItsKnots) {
    EXPECT_DOUBLE_EQ(Polar::speed(90, 10), 7.2);
    EXPECT_DOUBLE_EQ(Polar::speed(36, 6), 3.9);
    EXPECT_DOUBLE_EQ(Polar::speed(120, 30), 9.8);
    EXPECT_DOUBLE_EQ(Polar::speed(180, 20), 7.0);
}

TEST(PolarTest, isTheSameOnBothTacks) {
    EXPECT_EQ(Polar::speed(-90, 10), Polar::speed(90, 10));
    EXPECT_EQ(Polar::speed(-147, 12), Polar::speed(147, 12));
}

TEST(PolarTest, liesInTheMiddleBetweenTwoKnots) {
    EXPECT_DOUBLE_EQ(Polar::speed(90, 8), 6.55);
    EXPECT_DOUBLE_EQ(Polar::speed(100, 14), 8.2);
    EXPECT_DOUBLE_EQ(Polar::speed(47, 8), (4.6 + 5.2 + 6.0 + 6.5) / 4);
    EXPECT_DOUBLE_EQ(Polar::speed(18, 10), 2.65);
}

TEST(PolarTest, risesEvenlyUpToTheNextKnot) {
    EXPECT_DOUBLE_EQ(Polar::speed(41.4, 10), 5.3 + 0.9 * 0.7);
    EXPECT_DOUBLE_EQ(Polar::speed(90, 13.5), 7.2 + 0.875 * 0.9);
}

TEST(PolarTest, endsAtThirtyKnotsAndDeadDownwind) {
    EXPECT_DOUBLE_EQ(Polar::speed(90, 40), 9.0);
    EXPECT_DOUBLE_EQ(Polar::speed(200, 10), 4.8);
    EXPECT_DOUBLE_EQ(Polar::speed(-1000, 100), 7.5);
}

}  // namespace
}  // namespace tidewright::simulation
