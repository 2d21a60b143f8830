#include "ui/ChartPainter.h"

#include <gtest/gtest.h>

#include "Painting.h"

namespace tidewright::ui {
namespace {

/// A chart of 300 by 200 pixels, 10 metres each, around the boat at 0, 0.
struct ChartPainterTest : testing::Test {
    Painting painting{{300, 200}};
    ChartScene scene;
    ChartLook look{.water = Qt::black,
                   .line = Qt::darkGray,
                   .ink = Qt::white,
                   .muted = Qt::magenta,
                   .boat = Qt::red,
                   .vessel = Qt::cyan,
                   .anchor = Qt::green,
                   .textSize = 11,
                   .covered = QRectF(264, 8, 28, 92)};

    static ChartPlace at(double right, double down) {
        return {-10 * down / 111'320, 10 * right / 111'320};
    }

    QRect extent(const QColor& colour) {
        painting.image.fill(Qt::black);
        QPainter painter(&painting.image);
        paintChart(painter, scene, {{0, 0}, 10, painting.image.size()}, look);
        return painting.extentOf(colour);
    }
};

TEST_F(ChartPainterTest, drawsTheBoatAsSheHeads) {
    const QRect northward = extent(Qt::red);
    EXPECT_TRUE(northward.contains(150, 100));
    EXPECT_GT(northward.height(), 1.5 * northward.width());
    scene.heading = 90;
    const QRect eastward = extent(Qt::red);
    EXPECT_GT(eastward.width(), 1.5 * eastward.height());
}

TEST_F(ChartPainterTest, drawsTheTrackWhereTheBoatWas) {
    scene.track = {at(-100, 60.5), at(-50, 60.5), at(0, 0)};
    const QRect track = extent(painting.shade(Qt::red, 0.6));
    EXPECT_NEAR(track.left(), 50, 2);
    EXPECT_NEAR(track.bottom(), 160, 2);
}

TEST_F(ChartPainterTest, drawsAVesselInHerQuadrant) {
    scene.vessels = {{.name = "", .place = at(80, 50), .course = 45, .speed = 0}};
    const QRect vessel = extent(Qt::cyan);
    EXPECT_TRUE(vessel.contains(230, 150));
    EXPECT_GT(vessel.height(), 8);
    EXPECT_LT(vessel.height(), 20);
}

TEST_F(ChartPainterTest, drawsALineAheadOfAVesselThatMoves) {
    scene.vessels = {{.name = "", .place = at(0, 60.5), .course = 270, .speed = 10}};
    const QRect vessel = extent(Qt::cyan);
    EXPECT_NEAR(150 - vessel.left(), 28, 2);
    EXPECT_LT(vessel.right() - 150, 10);
}

TEST_F(ChartPainterTest, marksAVesselBeyondTheEdgeOnTheEdge) {
    scene.vessels = {{.name = "", .place = at(-900, 0), .course = 0, .speed = 0}};
    const QRect mark = extent(painting.shade(Qt::cyan, 0.55));
    EXPECT_TRUE(mark.contains(7, 100));
    EXPECT_LT(mark.right(), 20);
}

TEST_F(ChartPainterTest, marksNothingBehindTheButtons) {
    scene.vessels = {{.name = "", .place = at(900, -200), .course = 0, .speed = 0}};
    EXPECT_TRUE(extent(painting.shade(Qt::cyan, 0.55)).isNull());
}

TEST_F(ChartPainterTest, namesAVesselWhereThereIsRoom) {
    scene.vessels = {{.name = "IROISE", .place = at(-60, 50), .course = 0, .speed = 0}};
    const QRect name = extent(Qt::magenta);
    EXPECT_GT(name.left(), 95);
    EXPECT_LT(name.right(), 150);
    EXPECT_TRUE(QRect(90, 140, 60, 20).contains(name));
}

TEST_F(ChartPainterTest, namesNobodyInACrowd) {
    for (int i = 0; i < 13; ++i)
        scene.vessels.push_back({.name = "IROISE", .place = at(-130 + 20 * i, 60)});
    EXPECT_TRUE(extent(Qt::magenta).isNull());
    scene.vessels.pop_back();
    EXPECT_FALSE(extent(Qt::magenta).isNull());
}

TEST_F(ChartPainterTest, drawsTheCirclesAroundTheAnchor) {
    EXPECT_TRUE(extent(Qt::green).isNull());
    scene.anchorage = ChartAnchorage{.anchor = at(10, 0), .swingRadius = 600, .chainOut = 800};
    const QRect swing = extent(Qt::green);
    EXPECT_NEAR(swing.left(), 100, 2);
    EXPECT_NEAR(swing.right(), 220, 2);
    const QRect chain = extent(painting.shade(Qt::green, 0.5));
    EXPECT_NEAR(chain.left(), 80, 2);
    EXPECT_NEAR(chain.right(), 240, 2);
}

TEST_F(ChartPainterTest, drawsNorthAndTheScaleInTwoCorners) {
    const QRect ink = extent(Qt::white);
    EXPECT_TRUE(QRect(8, 8, 110, 184).contains(ink));
    EXPECT_LT(ink.top(), 20);
    EXPECT_GT(ink.bottom(), 180);
    EXPECT_NEAR(ink.width(), 92.6, 14);  // half a mile, at most 96 pixels
}

TEST_F(ChartPainterTest, keepsTheScaleLegibleOverAVessel) {
    const QRect alone = extent(Qt::white);
    scene.vessels = {{.name = "", .place = at(-120, 84), .course = 0, .speed = 0}};
    EXPECT_EQ(extent(Qt::white), alone);
    EXPECT_TRUE(extent(Qt::cyan).isNull());
}

TEST_F(ChartPainterTest, drawsNothingOutsideItsSize) {
    const QImage nothing = painting.image = Painting::black({400, 300});
    scene.track = {at(-1000, 10), at(1000, 30), at(20, 1000), at(0, 0)};
    QPainter painter(&painting.image);
    paintChart(painter, scene, {{0, 0}, 10, {300, 200}}, look);
    EXPECT_NE(painting.image, nothing);
    painter.fillRect(0, 0, 300, 200, Qt::black);
    EXPECT_EQ(painting.image, nothing);
}

}  // namespace
}  // namespace tidewright::ui
