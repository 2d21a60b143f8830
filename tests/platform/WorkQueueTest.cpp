#include "platform/WorkQueue.h"

#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <string>
#include <thread>

namespace tidewright::platform {
namespace {
using namespace std::chrono_literals;

TEST(WorkQueueTest, runsTasksInOrderOnOneThreadOfItsOwn) {
    WorkQueue queue("test.queue");
    std::string order;
    std::thread::id first;
    std::thread::id second;
    queue.post([&] {
        order += "a";
        first = std::this_thread::get_id();
    });
    queue.runAndWait([&] {
        order += "b";
        second = std::this_thread::get_id();
    });
    EXPECT_EQ(order, "ab");
    EXPECT_EQ(first, second);
    EXPECT_NE(first, std::this_thread::get_id());
}

TEST(WorkQueueTest, finishesWhatWasPostedBeforeItGoes) {
    int done = 0;
    {
        WorkQueue queue("test.queue");
        for (int i = 0; i < 100; ++i) queue.post([&] { ++done; });
    }
    EXPECT_EQ(done, 100);
}

TEST(WorkQueueTest, waitsUntilWhatItStartedSaysThatItIsDone) {
    WorkQueue queue("test.queue");
    WorkQueue::Task itsDone;
    auto waiting = std::async(std::launch::async, [&] {
        queue.startAndWait([&](WorkQueue::Task done) { itsDone = std::move(done); });
    });
    EXPECT_EQ(waiting.wait_for(50ms), std::future_status::timeout);
    queue.post([&] { itsDone(); });
    EXPECT_EQ(waiting.wait_for(10s), std::future_status::ready);
}

TEST(WorkQueueDeathTest, refusesToWaitForItself) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_DEATH(
        {
            WorkQueue queue("test.queue");
            queue.runAndWait([&] { queue.runAndWait([] {}); });
        },
        "wait for itself");
}

}  // namespace
}  // namespace tidewright::platform
