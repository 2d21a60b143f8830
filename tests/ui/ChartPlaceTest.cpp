#include "ui/ChartPlace.h"

#include <gtest/gtest.h>

namespace tidewright::ui {
namespace {

TEST(ChartPlaceTest, measuresInMetresEastAndNorth) {
    const ChartOffset way = offset({60, 10}, {60.5, 9});
    EXPECT_NEAR(way.north, 55'660, 0.1);
    EXPECT_NEAR(way.east, -55'660, 0.1);  // at 60 degrees half of what it is at the equator
}

TEST(ChartPlaceTest, knowsDistanceAndBearing) {
    const ChartOffset way{.east = -300, .north = 400};
    EXPECT_DOUBLE_EQ(way.length(), 500);
    EXPECT_NEAR(way.bearing(), 323.13, 0.01);
}

}  // namespace
}  // namespace tidewright::ui
