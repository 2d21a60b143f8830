#include "ui/ChartLabels.h"

#include <gtest/gtest.h>

namespace tidewright::ui {
namespace {

constexpr QRectF field(0, 0, 300, 200);
constexpr QSizeF size(80, 14);

TEST(ChartLabelsTest, standRightOfTheirMarkWhereTheyCan) {
    const auto places = placeLabels({{{150, 100}, size}}, field, {});
    EXPECT_EQ(places[0], QRectF(160, 93, 80, 14));
}

TEST(ChartLabelsTest, standOnAnotherSideWhereTheRightIsTaken) {
    const auto beyondTheEdge = placeLabels({{{280, 100}, size}}, field, {});
    EXPECT_EQ(beyondTheEdge[0], QRectF(190, 93, 80, 14));
    const auto taken =
        placeLabels({{{150, 100}, size}}, field, {QRectF(165, 95, 5, 5), QRectF(130, 95, 5, 5)});
    EXPECT_EQ(taken[0], QRectF(110, 110, 80, 14));
}

TEST(ChartLabelsTest, areLeftOutWhereThereIsNoRoom) {
    EXPECT_FALSE(placeLabels({{{150, 100}, size}}, field, {QRectF(50, 50, 200, 100)})[0]);
}

TEST(ChartLabelsTest, neverOverlapAndNeverLeaveTheField) {
    std::vector<ChartLabel> labels;
    for (int i = 0; i < 60; ++i) labels.push_back({QPointF(i * 37 % 300, i * 53 % 200), size});
    const auto places = placeLabels(labels, field, {});
    std::size_t shown = 0;
    for (std::size_t i = 0; i < places.size(); ++i) {
        if (!places[i]) continue;
        ++shown;
        EXPECT_TRUE(field.contains(*places[i]));
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_FALSE(places[j] && places[j]->intersects(*places[i])) << i << ' ' << j;
    }
    EXPECT_GT(shown, 10U);
    EXPECT_LT(shown, labels.size());
}

}  // namespace
}  // namespace tidewright::ui
