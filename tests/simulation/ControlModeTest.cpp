#include "simulation/ControlMode.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tidewright::simulation {
namespace {

using enum ControlMode;

TEST(ControlModeTest, isListedInTheOrderOfThePicker) {
    EXPECT_THAT(allControlModes, testing::ElementsAre(auto_, manual, anchor));
}

TEST(ControlModeTest, isWrittenByItsName) {
    EXPECT_EQ(rawValue(auto_), "auto");
    EXPECT_EQ(rawValue(manual), "manual");
    EXPECT_EQ(rawValue(anchor), "anchor");
}

TEST(ControlModeTest, isReadFromItsNameAndFromNothingElse) {
    for (const ControlMode mode : allControlModes) EXPECT_EQ(controlMode(rawValue(mode)), mode);
    for (const auto text : {"", "Auto", "auto_", "auto ", "mouillage"})
        EXPECT_EQ(controlMode(text), std::nullopt) << text;
}

TEST(ControlModeTest, hasAFrenchLabel) {
    EXPECT_EQ(label(auto_), "Auto");
    EXPECT_EQ(label(manual), "Manuel");
    EXPECT_EQ(label(anchor), "Mouillage");
}

TEST(ControlModeTest, stopsTheProgramWhenItIsNone) {
    EXPECT_DEATH(rawValue(static_cast<ControlMode>(9)), "no such control mode");
    EXPECT_DEATH(label(static_cast<ControlMode>(9)), "no such control mode");
}

}  // namespace
}  // namespace tidewright::simulation
