#include "simulation/EarthModel.h"

#include <gtest/gtest.h>

namespace tidewright::simulation {
namespace {

TEST(EarthModelTest, shortensADegreeOfLongitudeTowardsThePoles) {
    EXPECT_DOUBLE_EQ(metresPerDegreeOfLongitude(0), 111320);
    EXPECT_NEAR(metresPerDegreeOfLongitude(60), 55660, 1e-6);
    EXPECT_DOUBLE_EQ(metresPerDegreeOfLongitude(-47.4), metresPerDegreeOfLongitude(47.4));
    EXPECT_NEAR(metresPerDegreeOfLongitude(90), 0, 1e-9);
}

}  // namespace
}  // namespace tidewright::simulation
