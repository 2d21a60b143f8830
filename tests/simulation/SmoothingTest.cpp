#include "simulation/Smoothing.h"

#include <gtest/gtest.h>

namespace tidewright::simulation {
namespace {

TEST(SmoothingTest, coversNothingInNoTime) {
    EXPECT_EQ(lagShare(0, 60), 0);
}

TEST(SmoothingTest, coversHalfTheWayInTheHalfLife) {
    EXPECT_DOUBLE_EQ(lagShare(60 * std::log(2.0), 60), 0.5);
}

TEST(SmoothingTest, coversTheSameWayInOneStepAsInMany) {
    const double left = 1 - lagShare(0.1, 18);
    EXPECT_NEAR(1 - std::pow(left, 100), lagShare(10, 18), 1e-12);
}

}  // namespace
}  // namespace tidewright::simulation
