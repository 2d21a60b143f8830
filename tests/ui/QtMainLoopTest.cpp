#include "ui/QtMainLoop.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <thread>
#include <vector>

namespace tidewright::ui {
namespace {
using namespace std::chrono_literals;
using platform::Instant;
using platform::Subscription;

struct QtMainLoopTest : testing::Test {
    int argumentCount = 0;
    QCoreApplication application{argumentCount, nullptr};
    QtMainLoop loop;

    static void stop() { QCoreApplication::quit(); }

    /// Runs the loop until stop() or, should that never come, for ten seconds.
    void run() {
        bool late = false;
        loop.after(10s, [&] {
            late = true;
            stop();
        });
        QCoreApplication::exec();
        EXPECT_FALSE(late) << "nothing stopped the loop";
    }
};

TEST_F(QtMainLoopTest, ringsARepeatingTimerUntilItsHandleIsLetGo) {
    int rung = 0;
    Subscription timer = loop.every(1ms, [&] {
        if (++rung == 3) timer.reset();
    });
    loop.after(50ms, stop);
    run();
    EXPECT_EQ(rung, 3);
}

TEST_F(QtMainLoopTest, keepsToItsGridHoweverLateATurnIs) {
    const Instant start = loop.now();
    std::vector<std::chrono::nanoseconds> turns;
    const Subscription timer = loop.every(20ms, [&] {
        turns.push_back(loop.now() - start);
        std::this_thread::sleep_for(7ms);
        if (turns.size() == 10) stop();
    });
    run();
    EXPECT_GE(turns.back(), 200ms);
    EXPECT_LT(turns.back(), 270ms);  // not ten times 27
}

TEST_F(QtMainLoopTest, skipsTheTurnsThatItMissed) {
    const Instant start = loop.now();
    int rung = 0;
    const Subscription timer = loop.every(20ms, [&] {
        if (++rung == 1) std::this_thread::sleep_until(start + 110ms);  // past four more turns
        if (rung == 3) stop();                                          // one late, one on the grid
    });
    run();
    EXPECT_GE(loop.now() - start, 120ms);
}

TEST_F(QtMainLoopTest, runsWhatOtherThreadsPostInOrder) {
    std::vector<int> seen;
    std::thread other([&] {
        for (int i = 0; i < 3; ++i) loop.post([&seen, i] { seen.push_back(i); });
        loop.post(stop);
    });
    run();
    other.join();
    EXPECT_EQ(seen, (std::vector{0, 1, 2}));
}

TEST_F(QtMainLoopTest, runsADelayedTaskNotBeforeItsTime) {
    const Instant start = loop.now();
    loop.after(5ms, stop);
    run();
    EXPECT_GE(loop.now() - start, 5ms);
}

TEST_F(QtMainLoopTest, refusesAPeriodOfNothing) {
    EXPECT_DEATH((void)loop.every(0s, [] {}), "period");
}

}  // namespace
}  // namespace tidewright::ui
