#include "ui/ChartScene.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "WindowBench.h"

namespace tidewright::ui {
namespace {

struct ChartSceneTest : testing::Test {
    WindowBench bench;

    ChartScene scene() const { return {bench.engine, bench.simulator.track()}; }

    /// The longest line between two neighbouring points of the track or to the boat, metres.
    double longestSegment() const {
        const ChartScene now = scene();
        double longest = offset(now.track.back(), now.boat).length();
        for (std::size_t i = 1; i < now.track.size(); ++i)
            longest = std::max(longest, offset(now.track[i - 1], now.track[i]).length());
        return longest;
    }
};

TEST_F(ChartSceneTest, showsWhereTheBoatIsAndWhereSheHeads) {
    bench.engine.mode = simulation::ControlMode::manual;
    bench.engine.manual = {.sog = 7, .heading = 42};
    bench.simulator.start();
    bench.advance(1000);
    EXPECT_EQ(scene().boat.latitude, bench.engine.state->latitude);
    EXPECT_EQ(scene().boat.longitude, bench.engine.state->longitude);
    EXPECT_EQ(scene().heading, 42);
    EXPECT_EQ(scene().speed, 7);
}

TEST_F(ChartSceneTest, drawsNoLineFromOneRunToTheNext) {
    bench.simulator.start();
    bench.advance(300'000);
    EXPECT_EQ(scene().track.size(), 301U);
    EXPECT_LT(longestSegment(), 12);
    bench.simulator.stop();
    double longest = 0;
    const auto everyChange = bench.engine.observe(
        [&] { longest = std::max(longest, scene().track.empty() ? 0 : longestSegment()); });
    bench.simulator.start();
    bench.advance(60'000);
    EXPECT_EQ(scene().track.size(), 61U);
    EXPECT_GT(longest, 0);
    EXPECT_LT(longest, 12);
}

TEST_F(ChartSceneTest, showsTheLastHalfHourOfTheTrack) {
    bench.simulator.start();
    bench.advance(600'000);
    EXPECT_EQ(scene().trackTime, std::chrono::minutes(10));
    bench.advance(2'400'000);
    EXPECT_EQ(scene().trackTime, ChartScene::trackLength);
    EXPECT_EQ(scene().track.size(), 1801U);
}

TEST_F(ChartSceneTest, showsTheAnchorOnlyWhileTheBoatLiesToIt) {
    EXPECT_FALSE(scene().anchorage);
    bench.engine.mode = simulation::ControlMode::anchor;
    ASSERT_TRUE(scene().anchorage);
    EXPECT_DOUBLE_EQ(scene().anchorage->swingRadius, 36.9);
    EXPECT_DOUBLE_EQ(scene().anchorage->chainOut, 45);
    EXPECT_NEAR(offset(scene().anchorage->anchor, scene().boat).length(), 36.9, 0.1);
    bench.engine.mode = simulation::ControlMode::manual;
    EXPECT_FALSE(scene().anchorage);
}

TEST_F(ChartSceneTest, showsTheNearestVesselsFirst) {
    bench.engine.setAISTargets(150);
    const ChartScene now = scene();
    ASSERT_EQ(now.vessels.size(), ChartScene::mostVessels);
    EXPECT_TRUE(std::ranges::is_sorted(now.vessels, {}, [&](const ChartVessel& each) {
        return offset(now.boat, each.place).length();
    }));
    const auto& farthest = now.vessels.back().place;
    const auto nearer =
        std::ranges::count_if(bench.engine.traffic.targets, [&](const simulation::AISTarget& each) {
            return offset(now.boat, {each.latitude, each.longitude}).length() <
                   offset(now.boat, farthest).length();
        });
    EXPECT_EQ(nearer, static_cast<std::ptrdiff_t>(ChartScene::mostVessels) - 1);
}

}  // namespace
}  // namespace tidewright::ui
