#include "simulation/PointOfSail.h"

#include <gtest/gtest.h>

namespace tidewright::simulation {
namespace {

using enum PointOfSail;

TEST(PointOfSailTest, pointsHigherInMoreWindWhenBeating) {
    EXPECT_DOUBLE_EQ(targetAngle(beat, 10), 44);
    EXPECT_DOUBLE_EQ(targetAngle(beat, 8.75), 45);
    EXPECT_DOUBLE_EQ(targetAngle(beat, 12), 42.4);
}

TEST(PointOfSailTest, pointsNoHigherThanFortyNorLowerThanFortyEight) {
    EXPECT_DOUBLE_EQ(targetAngle(beat, 15), 40);
    EXPECT_DOUBLE_EQ(targetAngle(beat, 40), 40);
    EXPECT_DOUBLE_EQ(targetAngle(beat, 5), 48);
    EXPECT_DOUBLE_EQ(targetAngle(beat, 3), 48);
}

TEST(PointOfSailTest, holdsItsAngleInAnyWindOffTheBeat) {
    for (const double wind : {3.0, 40.0}) {
        EXPECT_EQ(targetAngle(closeReach, wind), 62);
        EXPECT_EQ(targetAngle(beamReach, wind), 90);
        EXPECT_EQ(targetAngle(broadReach, wind), 118);
        EXPECT_EQ(targetAngle(run, wind), 150);
    }
}

TEST(PointOfSailTest, hasAFrenchLabel) {
    EXPECT_EQ(label(beat), "Au près");
    EXPECT_EQ(label(closeReach), "Bon plein");
    EXPECT_EQ(label(beamReach), "Travers");
    EXPECT_EQ(label(broadReach), "Largue");
    EXPECT_EQ(label(run), "Grand largue");
}

TEST(PointOfSailTest, stopsTheProgramWhenItIsNone) {
    EXPECT_DEATH(targetAngle(static_cast<PointOfSail>(9), 12), "no such point of sail");
    EXPECT_DEATH(label(static_cast<PointOfSail>(9)), "no such point of sail");
}

}  // namespace
}  // namespace tidewright::simulation
