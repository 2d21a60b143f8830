#include "ui/WindDial.h"

#include <gtest/gtest.h>

#include "Painting.h"

namespace tidewright::ui {
namespace {

/// A dial of 200 by 200 pixels.
struct WindDialTest : testing::Test {
    Painting painting{{200, 200}};
    DialReading reading;

    QRect extent(const QColor& colour) {
        painting.image.fill(Qt::black);
        QPainter painter(&painting.image);
        paintDial(painter, reading, painting.image.rect(),
                  {.water = Qt::black,
                   .line = Qt::darkGray,
                   .ink = Qt::white,
                   .muted = Qt::gray,
                   .apparent = Qt::yellow,
                   .real = Qt::cyan,
                   .starboard = Qt::green,
                   .port = Qt::red,
                   .digits = {},
                   .textSize = 11});
        return painting.extentOf(colour);
    }
};

TEST_F(WindDialTest, putsTheBowUpAndStarboardRight) {
    EXPECT_NEAR(onRose(0, 10).y(), -10, 1e-9);
    EXPECT_NEAR(onRose(90, 10).x(), 10, 1e-9);
    EXPECT_NEAR(onRose(-90, 10).x(), -10, 1e-9);
    EXPECT_NEAR(onRose(180, 10).y(), 10, 1e-9);
}

TEST_F(WindDialTest, pointsItsHandsWhereTheWindsComeFrom) {
    reading.apparent = {.angle = 90, .speed = 15};
    reading.real = {.angle = -135, .speed = 12};
    const QRect apparent = extent(Qt::yellow);
    EXPECT_GT(apparent.left(), 140);
    EXPECT_NEAR(apparent.center().y(), 100, 3);
    const QRect real = extent(Qt::cyan);
    EXPECT_LT(real.right(), 60);
    EXPECT_GT(real.top(), 140);
}

TEST_F(WindDialTest, showsBothHandsWhereTheyCoincide) {
    reading.apparent = reading.real = {.angle = 40, .speed = 12};
    EXPECT_FALSE(extent(Qt::yellow).isNull());
    EXPECT_FALSE(extent(Qt::cyan).isNull());
}

TEST_F(WindDialTest, pointsNowhereInACalm) {
    reading.apparent = {.angle = 40, .speed = 0};
    EXPECT_TRUE(extent(Qt::yellow).isNull());
    EXPECT_TRUE(extent(Qt::cyan).isNull());
}

TEST_F(WindDialTest, showsTheApparentSpeedInTheMiddle) {
    reading.apparent.speed = 8.8;
    const QRect digits = extent(Qt::white);
    EXPECT_TRUE(digits.contains(100, 98));
    EXPECT_TRUE(QRect(40, 70, 120, 60).contains(digits));
}

TEST_F(WindDialTest, marksTheCloseHauledSidesInTheirLights) {
    EXPECT_LT(extent(Qt::red).right(), 100);
    EXPECT_GT(extent(Qt::green).left(), 100);
}

TEST_F(WindDialTest, tellsAWindWithItsSide) {
    EXPECT_EQ(windText({.angle = -39.6, .speed = 15.04}), "15.0 nd · 40° bâbord");
    EXPECT_EQ(windText({.angle = 180, .speed = 9}), "9.0 nd · 180° arrière");
}

}  // namespace
}  // namespace tidewright::ui
