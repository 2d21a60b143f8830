#include "ui/InstrumentTexts.h"

#include <gtest/gtest.h>

namespace tidewright::ui {
namespace {

simulation::BoatState windFrom(double angle) {
    simulation::BoatState state;
    state.apparentWindAngle = angle;
    return state;
}

TEST(InstrumentTextsTest, showSpeedsAndDepthWithOneDecimalAndTheCourseWithNone) {
    simulation::BoatState state;
    state.sog = 6.04;
    state.stw = 5.96;
    state.cog = 184.6;
    state.depth = 12.25;
    const InstrumentTexts texts(state);
    EXPECT_EQ(texts.sog, "6.0");
    EXPECT_EQ(texts.stw, "6.0");
    EXPECT_EQ(texts.cog, "185");
    EXPECT_EQ(texts.depth, "12.2");
}

TEST(InstrumentTextsTest, showThePositionInDegreesWithFiveDecimals) {
    simulation::BoatState state;
    state.latitude = -47.4;
    state.longitude = 3.123456;
    EXPECT_EQ(InstrumentTexts(state).position, "-47.40000, 3.12346");
}

TEST(InstrumentTextsTest, showTheSideFromWhichTheApparentWindComes) {
    EXPECT_EQ(InstrumentTexts(windFrom(40)).windSide, "tribord");
    EXPECT_EQ(InstrumentTexts(windFrom(-40)).windSide, "bâbord");
    EXPECT_EQ(InstrumentTexts(windFrom(-40)).windAngle, "40");
}

TEST(InstrumentTextsTest, showNoSideForAWindFromAheadOrAstern) {
    EXPECT_EQ(InstrumentTexts(windFrom(-0.4)).windSide, "debout");
    EXPECT_EQ(InstrumentTexts(windFrom(179.6)).windSide, "arrière");
    EXPECT_EQ(InstrumentTexts(windFrom(-180)).windSide, "arrière");
}

}  // namespace
}  // namespace tidewright::ui
