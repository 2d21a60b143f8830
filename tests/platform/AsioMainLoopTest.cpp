#include "platform/AsioMainLoop.h"

#include <gtest/gtest.h>

#include <csignal>
#include <thread>
#include <vector>

namespace tidewright::platform {
namespace {
using namespace std::chrono_literals;

struct AsioMainLoopTest : testing::Test {
    AsioMainLoop loop;

    /// Runs the loop until stop() or, should that never come, for ten seconds.
    void run() {
        bool late = false;
        loop.after(10s, [&] {
            late = true;
            loop.stop();
        });
        loop.run();
        EXPECT_FALSE(late) << "nothing stopped the loop";
    }
};

TEST_F(AsioMainLoopTest, ringsARepeatingTimerUntilItsHandleIsLetGo) {
    int rung = 0;
    Subscription timer = loop.every(1ms, [&] {
        if (++rung == 3) timer.reset();
    });
    loop.after(50ms, [&] { loop.stop(); });
    run();
    EXPECT_EQ(rung, 3);
}

TEST_F(AsioMainLoopTest, skipsTheTurnsThatItMissed) {
    const Instant start = loop.now();
    int rung = 0;
    const Subscription timer = loop.every(20ms, [&] {
        if (++rung == 1) std::this_thread::sleep_until(start + 110ms);  // past four more turns
        if (rung == 3) loop.stop();                                     // one late, one on the grid
    });
    run();
    EXPECT_GE(loop.now() - start, 120ms);
}

TEST_F(AsioMainLoopTest, standsStillWhileHeldButForWhatIsPostedOrDelayed) {
    int rung = 0;
    const Subscription timer = loop.every(1ms, [&] { ++rung; });
    loop.hold();
    bool isPosted = false;
    loop.post([&] { isPosted = true; });
    loop.after(30ms, [&] {
        EXPECT_EQ(rung, 0);
        EXPECT_TRUE(isPosted);
        loop.resume();
        loop.after(30ms, [&] { loop.stop(); });
    });
    run();
    EXPECT_GT(rung, 0);
    EXPECT_LE(rung, 35);
}

TEST_F(AsioMainLoopTest, takesTheFirstInterruptAndLeavesTheNextToTheSystem) {
    int taken = 0;
    loop.onInterrupt([&](int signal) {
        taken = signal;
        loop.stop();
    });
    loop.post([] { std::raise(SIGTERM); });
    run();
    EXPECT_EQ(taken, SIGTERM);
    EXPECT_EQ(std::signal(SIGTERM, SIG_DFL), SIG_DFL);
    EXPECT_EQ(std::signal(SIGINT, SIG_DFL), SIG_DFL);
}

TEST_F(AsioMainLoopTest, leavesAnInterruptAloneThatTheProgramWasStartedToIgnore) {
    std::signal(SIGINT, SIG_IGN);
    bool isTaken = false;
    loop.onInterrupt([&](int) { isTaken = true; });
    loop.post([] { std::raise(SIGINT); });
    loop.after(20ms, [&] { loop.stop(); });
    run();
    EXPECT_FALSE(isTaken);
    EXPECT_EQ(std::signal(SIGINT, SIG_DFL), SIG_IGN);
}

TEST_F(AsioMainLoopTest, runsWhatOtherThreadsPostInOrder) {
    std::vector<int> seen;
    std::thread other([&] {
        for (int i = 0; i < 3; ++i) loop.post([&seen, i] { seen.push_back(i); });
        loop.post([this] { loop.stop(); });
    });
    run();
    other.join();
    EXPECT_EQ(seen, (std::vector{0, 1, 2}));
}

TEST_F(AsioMainLoopTest, runsADelayedTaskNotBeforeItsTime) {
    const Instant start = loop.now();
    loop.after(5ms, [&] { loop.stop(); });
    run();
    EXPECT_GE(loop.now() - start, 5ms);
}

TEST_F(AsioMainLoopTest, refusesAPeriodOfNothing) {
    EXPECT_DEATH((void)loop.every(0s, [] {}), "period");
}

}  // namespace
}  // namespace tidewright::platform
