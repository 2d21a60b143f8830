#include "simulation/SailingEnvironment.h"

#include <gtest/gtest.h>

namespace tidewright::simulation {
namespace {

void expectRange(const SailingEnvironment& environment, double low, double high) {
    EXPECT_EQ(environment.windRange().low, low);
    EXPECT_EQ(environment.windRange().high, high);
}

SailingEnvironment custom(double least, double most) {
    return {.windPreset = WindPreset::custom, .customMin = least, .customMax = most};
}

TEST(SailingEnvironmentTest, isABreezeAndAFullCrewAtFirst) {
    EXPECT_EQ(SailingEnvironment{}, (SailingEnvironment{WindPreset::breeze, 8, 18, 1, true}));
}

TEST(SailingEnvironmentTest, hasARangeForEveryPreset) {
    expectRange({.windPreset = WindPreset::light}, 5, 9);
    expectRange({.windPreset = WindPreset::breeze}, 10, 16);
    expectRange({.windPreset = WindPreset::fresh}, 17, 22);
    expectRange({.windPreset = WindPreset::strong}, 23, 30);
    expectRange(custom(8, 18), 8, 18);
}

TEST(SailingEnvironmentTest, isAtLeastAKnotWideWhateverTheCustomBounds) {
    expectRange(custom(20, 12), 11, 12);
    expectRange(custom(12, 12), 11, 12);
    expectRange(custom(12, 12.5), 11.5, 12.5);
    expectRange(custom(11, 12), 11, 12);
}

TEST(SailingEnvironmentTest, spreadsItsZonesOverTheRange) {
    EXPECT_DOUBLE_EQ(SailingEnvironment{}.zoneWind(0), 10);
    EXPECT_DOUBLE_EQ(SailingEnvironment{}.zoneWind(0.25), 11.5);
    EXPECT_DOUBLE_EQ(custom(8, 18).zoneWind(1), 18);
}

TEST(SailingEnvironmentTest, keepsEveryZoneWithinTheRange) {
    EXPECT_DOUBLE_EQ(SailingEnvironment{}.zoneWind(-0.3), 10);
    EXPECT_DOUBLE_EQ(SailingEnvironment{}.zoneWind(1.2), 16);
}

TEST(SailingEnvironmentTest, stopsTheProgramOnAPresetThatIsNone) {
    const SailingEnvironment none{.windPreset = static_cast<WindPreset>(9)};
    EXPECT_DEATH(none.windRange(), "no such wind preset");
}

}  // namespace
}  // namespace tidewright::simulation
