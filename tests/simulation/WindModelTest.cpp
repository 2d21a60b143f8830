#include "simulation/WindModel.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace tidewright::simulation {
namespace {

struct WindModelTest : testing::Test {
    WindModel wind;
};

TEST_F(WindModelTest, blowsTwelveKnotsFromTheSouthWestAtFirst) {
    EXPECT_EQ(wind.baseDirection, 230);
    EXPECT_EQ(wind.speed, 12);
    EXPECT_EQ(wind.direction, 230);
    EXPECT_EQ(wind.zoneSpeed, 12);
    EXPECT_EQ(wind.speedSmooth, 12);
    EXPECT_EQ(wind.zoneShift, 0);
    EXPECT_EQ(wind.shift, 0);
}

TEST_F(WindModelTest, drawsItsFourPhasesInOrder) {
    SeededGenerator rng{11};
    SeededGenerator same{11};
    wind = WindModel(rng);
    for (const double phase : wind.p) EXPECT_EQ(phase, same.halfOpen(0, 2 * std::numbers::pi));
    EXPECT_EQ(rng.state, same.state);
}

TEST_F(WindModelTest, gustsAndVeersByTheirPhases) {
    constexpr double quarter = std::numbers::pi / 2;
    wind.p = {quarter, quarter, quarter, quarter};
    wind.compute(0);
    EXPECT_DOUBLE_EQ(wind.speed, 12 * 1.075);
    EXPECT_DOUBLE_EQ(wind.direction, 235.5);
}

TEST_F(WindModelTest, gustsAndVeersInTheirPeriods) {
    constexpr double turn = 2 * std::numbers::pi;
    wind.compute(100);
    EXPECT_DOUBLE_EQ(wind.speed, 12 * (1 + 0.05 * std::sin(turn * 100 / 58) +
                                       0.025 * std::sin(turn * 100 / 131)));
    EXPECT_DOUBLE_EQ(wind.direction,
                     230 + 4 * std::sin(turn * 100 / 310) + 1.5 * std::sin(turn * 100 / 73));
}

TEST_F(WindModelTest, staysWithinThreeAndFortyKnots) {
    for (const double smooth : {-100.0, 0.0, 2.9, 39.9, 1000.0}) {
        wind.speedSmooth = smooth;
        for (double time = 0; time < 400; time += 1) {
            wind.compute(time);
            EXPECT_TRUE(wind.speed >= 3 && wind.speed <= 40) << wind.speed;
        }
    }
    EXPECT_EQ(wind.speed, 40);
}

TEST_F(WindModelTest, keepsItsDirectionWithinOneTurn) {
    wind.shift = 200;
    wind.compute(0);
    EXPECT_DOUBLE_EQ(wind.direction, 70);
    wind.shift = -231;
    wind.compute(0);
    EXPECT_DOUBLE_EQ(wind.direction, 359);
}

TEST_F(WindModelTest, reachesANewZoneWithinAboutAMinute) {
    wind.zoneSpeed = 22;
    wind.zoneShift = -10;
    for (int i = 0; i < 600; ++i) wind.approachZone(0.1);
    EXPECT_NEAR(wind.speedSmooth, 22 - 10 * std::exp(-1), 1e-9);
    EXPECT_NEAR(wind.shift, -10 * (1 - std::exp(-1)), 1e-9);
}

}  // namespace
}  // namespace tidewright::simulation
