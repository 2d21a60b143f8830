#include "simulation/TrueWind.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tidewright::simulation {
namespace {

constexpr double tolerance = 1e-9;

void expectWind(const RelativeWind& wind, double angle, double speed) {
    EXPECT_NEAR(wind.angle, angle, tolerance);
    EXPECT_NEAR(wind.speed, speed, tolerance);
}

TEST(TrueWindTest, isNoneWhenTheBoatMakesAllTheWindSheFeels) {
    expectWind(trueWind(0, 10, 10), 0, 0);
}

TEST(TrueWindTest, isFurtherAftThanTheApparentOne) {
    expectWind(trueWind(90, 10, 10), 135, std::sqrt(200));
    expectWind(trueWind(-90, 10, 10), -135, std::sqrt(200));
}

TEST(TrueWindTest, isTheApparentWindWhenLyingStill) {
    expectWind(trueWind(-40, 15, 0), -40, 15);
    expectWind(trueWind(400, 15, 0), 40, 15);
}

TEST(TrueWindTest, comesFromAsternWhenTheBoatOutrunsWhatSheFeels) {
    expectWind(trueWind(0, 4, 10), 180, 6);
    expectWind(trueWind(180, 5, 5), 180, 10);
}

TEST(TrueWindTest, isTheBoatsOwnWayFromAsternWithoutAnyApparentWind) {
    expectWind(trueWind(0, 0, 6), 180, 6);
}

}  // namespace
}  // namespace tidewright::simulation
