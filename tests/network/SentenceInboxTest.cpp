#include "network/SentenceInbox.h"

#include <gtest/gtest.h>

#include <future>

namespace tidewright::network {
namespace {

/// An inbox for eight bytes, whose queue is held up until let go.
struct SentenceInboxTest : testing::Test {
    std::string delivered;
    SentenceInbox inbox{queue, [this](const SharedBytes& sentence) { delivered += *sentence; }, 8};
    std::promise<void> leave;
    platform::WorkQueue queue{"test.queue"};

    void post(const char* text) { inbox.post(std::make_shared<const std::string>(text)); }

    void holdUp() {
        queue.post([this] { leave.get_future().wait(); });
    }

    void letGo() {
        leave.set_value();
        queue.runAndWait([] {});
    }
};

TEST_F(SentenceInboxTest, deliversInOrder) {
    post("abc");
    post("def");
    queue.runAndWait([] {});
    EXPECT_EQ(delivered, "abcdef");
    EXPECT_EQ(inbox.droppedSentences(), 0);
}

TEST_F(SentenceInboxTest, dropsAndCountsWhatGoesPastItsBound) {
    holdUp();
    for (const auto* text : {"abc", "def", "ghi", "jk", "l"}) post(text);
    EXPECT_EQ(inbox.droppedSentences(), 2);
    letGo();
    EXPECT_EQ(delivered, "abcdefjk");
}

TEST_F(SentenceInboxTest, hasRoomAgainForWhatWasDelivered) {
    holdUp();
    for (const auto* text : {"abc", "def", "ghi"}) post(text);
    letGo();
    post("12345678");
    queue.runAndWait([] {});
    EXPECT_EQ(delivered, "abcdef12345678");
    EXPECT_EQ(inbox.droppedSentences(), 1);
}

}  // namespace
}  // namespace tidewright::network
