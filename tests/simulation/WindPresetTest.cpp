#include "simulation/WindPreset.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tidewright::simulation {
namespace {

using enum WindPreset;

TEST(WindPresetTest, isListedFromLightToStrongThenOnesOwn) {
    EXPECT_THAT(allWindPresets, testing::ElementsAre(light, breeze, fresh, strong, custom));
}

TEST(WindPresetTest, isWrittenByItsName) {
    EXPECT_EQ(rawValue(light), "light");
    EXPECT_EQ(rawValue(breeze), "breeze");
    EXPECT_EQ(rawValue(fresh), "fresh");
    EXPECT_EQ(rawValue(strong), "strong");
    EXPECT_EQ(rawValue(custom), "custom");
}

TEST(WindPresetTest, isReadFromItsNameAndFromNothingElse) {
    for (const WindPreset preset : allWindPresets) EXPECT_EQ(windPreset(rawValue(preset)), preset);
    for (const auto text : {"", "Light", "breezy", "perso"})
        EXPECT_EQ(windPreset(text), std::nullopt) << text;
}

TEST(WindPresetTest, hasAFrenchLabel) {
    EXPECT_EQ(label(light), "Petit temps");
    EXPECT_EQ(label(breeze), "Brise");
    EXPECT_EQ(label(fresh), "Bon vent");
    EXPECT_EQ(label(strong), "Fort");
    EXPECT_EQ(label(custom), "Perso");
}

TEST(WindPresetTest, stopsTheProgramWhenItIsNone) {
    EXPECT_DEATH(rawValue(static_cast<WindPreset>(9)), "no such wind preset");
    EXPECT_DEATH(label(static_cast<WindPreset>(9)), "no such wind preset");
}

}  // namespace
}  // namespace tidewright::simulation
