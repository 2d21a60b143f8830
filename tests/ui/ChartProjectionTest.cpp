#include "ui/ChartProjection.h"

#include <gtest/gtest.h>

namespace tidewright::ui {
namespace {

struct ChartProjectionTest : testing::Test {
    const ChartPlace boat{47.4, -3.55};
    const ChartProjection projection{boat, 10, {300, 200}};
    const QPointF middle{150, 100};
};

TEST_F(ChartProjectionTest, putsItsCentreInTheMiddle) {
    EXPECT_EQ(projection.at(boat), middle);
}

TEST_F(ChartProjectionTest, drawsEastToTheRightAtTheSameHeight) {
    const QPointF east = projection.at({boat.latitude, boat.longitude + 0.01});
    EXPECT_GT(east.x(), middle.x());
    EXPECT_DOUBLE_EQ(east.y(), middle.y());
}

TEST_F(ChartProjectionTest, drawsNorthUpwards) {
    const QPointF north = projection.at({boat.latitude + 0.005, boat.longitude});
    EXPECT_DOUBLE_EQ(north.x(), middle.x());
    EXPECT_NEAR(north.y(), middle.y() - 55.66, 1e-9);
}

TEST_F(ChartProjectionTest, drawsTheSameDistanceEquallyLongInEveryDirection) {
    const double mile = 1.0 / 60;
    const ChartProjection inTheNorth({60, 0}, 10, {300, 200});
    EXPECT_NEAR(inTheNorth.at({60, 2 * mile}).x() - 150, 100 - inTheNorth.at({60 + mile, 0}).y(),
                1e-9);
}

}  // namespace
}  // namespace tidewright::ui
