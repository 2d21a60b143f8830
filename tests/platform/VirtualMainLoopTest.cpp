#include "platform/VirtualMainLoop.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tidewright::platform {
namespace {
using namespace std::chrono_literals;

struct VirtualMainLoopTest : testing::Test {
    VirtualMainLoop loop;
};

TEST_F(VirtualMainLoopTest, ringsEveryPeriodFirstOnePeriodFromNow) {
    std::vector<MainLoop::Duration> rung;
    const auto timer = loop.every(50ms, [&] { rung.push_back(loop.now().time_since_epoch()); });
    loop.advance(175ms);
    EXPECT_EQ(rung, (std::vector<MainLoop::Duration>{50ms, 100ms, 150ms}));
    EXPECT_EQ(loop.now().time_since_epoch(), 175ms);
}

TEST_F(VirtualMainLoopTest, runsTimersDueTogetherInTheOrderOfTheirCreation) {
    std::string order;
    const auto slow = loop.every(100ms, [&] { order += "s"; });
    const auto quick = loop.every(50ms, [&] { order += "q"; });
    loop.after(100ms, [&] { order += "a"; });
    loop.advance(200ms);
    EXPECT_EQ(order, "qsqaqsq");
}

TEST_F(VirtualMainLoopTest, forgetsATimerWhoseHandleIsLetGo) {
    int rung = 0;
    auto timer = loop.every(50ms, [&] { ++rung; });
    loop.advance(50ms);
    timer.reset();
    loop.advance(1s);
    EXPECT_EQ(rung, 1);
}

TEST_F(VirtualMainLoopTest, skipsTheTurnsMissedInAStall) {
    std::vector<MainLoop::Duration> rung;
    const auto timer = loop.every(50ms, [&] { rung.push_back(loop.now().time_since_epoch()); });
    loop.stall(180ms);
    loop.advance(40ms);
    EXPECT_EQ(rung, (std::vector<MainLoop::Duration>{180ms, 200ms}));
}

TEST_F(VirtualMainLoopTest, runsPostedTasksAtOnceInOrder) {
    std::string order;
    loop.post([&] {
        order += "a";
        loop.post([&] { order += "c"; });
    });
    loop.post([&] { order += "b"; });
    loop.advance(0s);
    EXPECT_EQ(order, "abc");
}

TEST_F(VirtualMainLoopTest, stepsTheWallClockAndNotTheSteadyOne) {
    loop.stepWallClock(-1h);
    loop.advance(1s);
    EXPECT_EQ(loop.wallClock(), WallTime{} - 1h + 1s);
    EXPECT_EQ(loop.now().time_since_epoch(), 1s);
}

}  // namespace
}  // namespace tidewright::platform
