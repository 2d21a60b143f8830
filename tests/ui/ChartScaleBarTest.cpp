#include "ui/ChartScaleBar.h"

#include <gtest/gtest.h>

namespace tidewright::ui {
namespace {

TEST(ChartScaleBarTest, isAsLongAsTheDistanceItStandsFor) {
    for (double range = 0.05; range < 200; range *= 1.07) {
        const ChartScaleBar bar = scaleBar(range, 96);
        EXPECT_NEAR(bar.pixels * range, bar.metres, 1e-9 * bar.metres);
        EXPECT_LE(bar.pixels, 96);
        EXPECT_GT(bar.pixels, 96 * 0.39) << range;
    }
}

TEST(ChartScaleBarTest, namesARoundDistanceInMetresOrInMiles) {
    const auto text = [](double range) { return scaleBar(range, 100).text; };
    EXPECT_EQ(text(0.05), "5 m");
    EXPECT_EQ(text(0.6), "50 m");
    EXPECT_EQ(text(9.2), "500 m");
    EXPECT_EQ(text(9.3), "0.5 NM");
    EXPECT_EQ(text(18.6), "1 NM");
    EXPECT_EQ(text(200), "10 NM");
}

TEST(ChartScaleBarTest, standsForTheDistanceItNames) {
    EXPECT_EQ(scaleBar(0.6, 100).metres, 50);
    EXPECT_EQ(scaleBar(9.3, 100).metres, 926);
}

}  // namespace
}  // namespace tidewright::ui
