#include "ui/ChartRange.h"

#include <gtest/gtest.h>

#include <QRectF>

#include "ui/ChartProjection.h"

namespace tidewright::ui {
namespace {

constexpr QSizeF size(300, 220);

/// A place so many metres from the boat at 47.4 N, 3.55 W.
ChartPlace fromBoat(double east, double north) {
    const ChartPlace boat{47.4, -3.55};
    const ChartOffset degree = offset(boat, {48.4, -2.55});
    return {boat.latitude + north / degree.north, boat.longitude + east / degree.east};
}

ChartScene sailing() {
    ChartScene scene;
    scene.boat = fromBoat(0, 0);
    return scene;
}

ChartScene anchored(double chain) {
    ChartScene scene = sailing();
    scene.anchorage = ChartAnchorage{
        .anchor = fromBoat(0, 0.82 * chain), .swingRadius = 0.82 * chain, .chainOut = chain};
    return scene;
}

ChartVessel vesselAt(double east, double north) {
    return {.name = "IROISE", .place = fromBoat(east, north)};
}

bool isSeen(const ChartScene& scene, ChartPlace place) {
    const ChartProjection projection(chartCentre(scene), automaticRange(scene, size), size);
    return QRectF({0, 0}, size).adjusted(10, 10, -10, -10).contains(projection.at(place));
}

TEST(ChartRangeTest, centresOnTheBoatAndAtAnchorOnTheAnchor) {
    EXPECT_EQ(chartCentre(sailing()), fromBoat(0, 0));
    EXPECT_EQ(chartCentre(anchored(45)), fromBoat(0, 0.82 * 45));
}

TEST(ChartRangeTest, showsTheWholeCircleOfTheChainAndFillsTheChartWithIt) {
    for (const double chain : {5.0, 45.0, 200.0}) {
        ChartScene scene = anchored(chain);
        scene.boat = scene.anchorage->anchor;
        const double diameter = 2 * chain / automaticRange(scene, size);
        EXPECT_LE(diameter, size.height() - 20) << chain;
    }
    EXPECT_GE(2 * 200 / automaticRange(anchored(200), size), 0.6 * size.height());
}

TEST(ChartRangeTest, showsABoatThatLiesBeyondHerChain) {
    ChartScene scene = anchored(45);
    scene.boat = fromBoat(400, 0);
    EXPECT_TRUE(isSeen(scene, scene.boat));
}

TEST(ChartRangeTest, showsTheWholeTrackUnderWay) {
    ChartScene scene = sailing();
    scene.track = {fromBoat(-4000, 2500), fromBoat(-10, 10)};
    EXPECT_TRUE(isSeen(scene, scene.track.front()));
}

TEST(ChartRangeTest, leavesTheWayToTheAnchorageOutOfAccount) {
    ChartScene scene = anchored(45);
    const double before = automaticRange(scene, size);
    scene.track = {fromBoat(-4000, 2500), fromBoat(-10, 10)};
    EXPECT_EQ(automaticRange(scene, size), before);
}

TEST(ChartRangeTest, showsTheThreeNearestVessels) {
    ChartScene scene = sailing();
    scene.vessels = {vesselAt(900, 0), vesselAt(0, -2000), vesselAt(0, 4000), vesselAt(0, 5400)};
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(isSeen(scene, scene.vessels[i].place)) << i;
    EXPECT_FALSE(isSeen(scene, scene.vessels[3].place));
}

TEST(ChartRangeTest, doesNotShrinkEverythingForAVesselFarAway) {
    ChartScene scene = anchored(45);
    const double before = automaticRange(scene, size);
    scene.vessels = {vesselAt(600, 0)};
    EXPECT_EQ(automaticRange(scene, size), before);
    scene.vessels = {vesselAt(200, 0)};
    EXPECT_TRUE(isSeen(scene, scene.vessels[0].place));
}

TEST(ChartRangeTest, staysTheSameWhileLittleChanges) {
    ChartScene scene = sailing();
    int changes = 0;
    double last = automaticRange(scene, size);
    for (int second = 0; second < 1000; ++second) {
        scene.track.insert(scene.track.begin(), fromBoat(-3.0 * second, 0));
        if (const double now = automaticRange(scene, size); now != last) ++changes, last = now;
    }
    EXPECT_GT(changes, 10);  // from 50 m to 3000 m, in steps of a fifth
    EXPECT_LT(changes, 30);
}

TEST(ChartRangeTest, hasARangeEvenWithNothingAndNoRoom) {
    EXPECT_GT(automaticRange(ChartScene(), {0, 0}), 0);
}

TEST(ChartRangeTest, zoomsTwofoldWithinLimits) {
    EXPECT_DOUBLE_EQ(zoomed(10, 1), 5);
    EXPECT_DOUBLE_EQ(zoomed(10, -2), 40);
    EXPECT_EQ(zoomed(10, 100), closestRange);
    EXPECT_EQ(zoomed(10, -100), widestRange);
}

}  // namespace
}  // namespace tidewright::ui
