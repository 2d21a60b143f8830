#include "platform/PacedMainLoop.h"

#include <gtest/gtest.h>

#include <vector>

namespace tidewright::platform {
namespace {
using namespace std::chrono_literals;

constexpr WallTime noon =
    std::chrono::sys_days{std::chrono::June / 1 / 2026} + std::chrono::hours(12);

/// A run on a machine whose own time passes when the test says so.
struct PacedMainLoopTest : testing::Test {
    VirtualMainLoop machine;
    std::vector<MainLoop::Duration> turns;  ///< when, by the run's clock

    static MainLoop::Duration timeOf(const MainLoop& run) { return run.now().time_since_epoch(); }

    Subscription noteEvery(MainLoop::Duration period, PacedMainLoop& run) {
        return run.every(period, [this, &run] { turns.push_back(timeOf(run)); });
    }
};

TEST_F(PacedMainLoopTest, keepsStepWithTheMachineAtItsSpeed) {
    for (const double speed : {0.1, 1.0, 2.5, 1000.0}) {
        PacedMainLoop run(machine, noon, speed);
        turns.clear();
        const auto timer = noteEvery(100ms, run);
        const auto start = machine.now();
        std::vector<MainLoop::Duration> inStep;
        run.after(500ms, [&] { inStep.push_back(machine.now() - start); });
        machine.advance(std::chrono::ceil<std::chrono::nanoseconds>(600ms / speed));
        EXPECT_EQ(turns,
                  (std::vector<MainLoop::Duration>{100ms, 200ms, 300ms, 400ms, 500ms, 600ms}))
            << speed;
        ASSERT_EQ(inStep.size(), 1U);
        EXPECT_NEAR(static_cast<double>(inStep[0].count()) * speed, 5e8, 10) << speed;
    }
}

TEST_F(PacedMainLoopTest, runsAheadOfTheMachineWithoutASpeed) {
    PacedMainLoop run(machine, noon, PacedMainLoop::unlimited);
    const auto timer = noteEvery(1h, run);
    run.after(24h, [&run] { run.hold(); });
    machine.advance(0s);
    EXPECT_EQ(turns.size(), 24U);
    EXPECT_EQ(run.wallClock(), noon + 24h);
}

TEST_F(PacedMainLoopTest, showsItsOwnWallClock) {
    PacedMainLoop run(machine, noon, 10);
    WallTime seen;
    run.after(30s, [&] { seen = run.wallClock(); });
    machine.advance(3s);
    EXPECT_EQ(seen, noon + 30s);
}

TEST_F(PacedMainLoopTest, takesWhatIsPostedInBetweenAtTheTimeReached) {
    PacedMainLoop run(machine, noon, 10);
    const auto timer = noteEvery(1s, run);
    machine.after(250ms, [&] { run.post([&] { turns.push_back(timeOf(run)); }); });
    machine.advance(300ms);
    EXPECT_EQ(turns, (std::vector<MainLoop::Duration>{1s, 2s, 2500ms, 3s}));
}

TEST_F(PacedMainLoopTest, neverMovesItsClockPastWhatIsDue) {
    PacedMainLoop run(machine, noon, 1);
    const auto timer = run.every(1ms, [] {});
    machine.stall(900ms);
    run.post([&] { turns.push_back(timeOf(run)); });
    machine.advance(0s);
    ASSERT_EQ(turns.size(), 1U);
    EXPECT_LT(turns[0], 900ms);
    EXPECT_EQ(timeOf(run), 900ms);
}

TEST_F(PacedMainLoopTest, catchesUpTurnByTurnUpToASecond) {
    PacedMainLoop run(machine, noon, 1);
    const auto timer = noteEvery(100ms, run);
    machine.stall(1s);
    machine.advance(0s);
    EXPECT_EQ(turns.size(), 10U);
    EXPECT_EQ(turns.back(), 1s);
}

TEST_F(PacedMainLoopTest, goesOnFromThereAfterALongStop) {
    PacedMainLoop run(machine, noon, 10);
    const auto timer = noteEvery(1s, run);
    machine.advance(100ms);
    machine.stall(1h);
    machine.advance(100ms);
    EXPECT_EQ(turns, (std::vector<MainLoop::Duration>{1s, 2s, 3s}));
    machine.advance(100ms);
    EXPECT_EQ(turns.back(), 4s);
}

TEST_F(PacedMainLoopTest, takesPostedWorkWhileItCatchesUp) {
    PacedMainLoop run(machine, noon, PacedMainLoop::unlimited);
    const auto timer = noteEvery(1s, run);
    bool isOver = false;
    run.post([&] {
        run.hold();
        isOver = true;
    });
    machine.advance(0s);
    EXPECT_TRUE(isOver);
}

TEST_F(PacedMainLoopTest, standsStillWhileHeldAndGoesOnWithoutABurst) {
    PacedMainLoop run(machine, noon, 1);
    const auto timer = noteEvery(100ms, run);
    run.after(200ms, [&run] { run.hold(); });
    machine.advance(700ms);
    EXPECT_EQ(turns, (std::vector<MainLoop::Duration>{100ms, 200ms}));
    bool isTaken = false;
    run.post([&] { isTaken = true; });
    machine.advance(0s);
    EXPECT_TRUE(isTaken);
    run.resume();
    machine.advance(50ms);
    EXPECT_EQ(turns.size(), 2U);
    machine.advance(50ms);
    EXPECT_EQ(turns.back(), 300ms);
}

TEST_F(PacedMainLoopTest, runsWhatIsToBeFirstAheadOfOthersDueAtThatInstant) {
    PacedMainLoop run(machine, noon, 1);
    std::vector<int> order;
    const auto timer = run.every(1s, [&] { order.push_back(3); });
    run.after(1s, [&] { order.push_back(4); });
    run.firstAfter(1s, [&] { order.push_back(1); });
    run.firstAfter(1s, [&] { order.push_back(2); });
    machine.advance(1s);
    EXPECT_EQ(order, (std::vector{1, 2, 3, 4}));
}

TEST_F(PacedMainLoopTest, wakesForWhatIsAskedForLaterAndDueEarlier) {
    PacedMainLoop run(machine, noon, 1);
    run.after(10s, [&] { turns.push_back(timeOf(run)); });
    run.after(1s, [&] { turns.push_back(timeOf(run)); });
    machine.advance(1s);
    EXPECT_EQ(turns, (std::vector<MainLoop::Duration>{1s}));
}

TEST_F(PacedMainLoopTest, leavesNothingBehindWhenItGoes) {
    bool hasRun = false;
    {
        PacedMainLoop run(machine, noon, 1);
        run.after(1s, [&] { hasRun = true; });
        run.post([&] { hasRun = true; });
    }
    machine.advance(2s);
    EXPECT_FALSE(hasRun);
}

}  // namespace
}  // namespace tidewright::platform
