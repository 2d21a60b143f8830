#include "faults/Delivery.h"

#include <gmock/gmock.h>

#include <optional>

#include "platform/VirtualMainLoop.h"
#include "support/ScriptedRandom.h"

namespace tidewright::faults {
namespace {
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

struct DeliveryTest : testing::Test {
    platform::VirtualMainLoop loop;
    ScriptedRandom random;
    FailureInjection faults;
    std::vector<std::string> sent;
    std::optional<Delivery> delivery{std::in_place, loop, random, faults,
                                     [this](std::string each) { sent.push_back(std::move(each)); }};
};

TEST_F(DeliveryTest, sendsAtOnceAndDrawsNothingWithoutAFault) {
    random.wholeNumbers[100] = {0};
    delivery->deliver({"a", "b"});
    EXPECT_THAT(sent, ElementsAre("a", "b"));
    EXPECT_EQ(random.wholeNumbers[100].size(), 1U);
}

TEST_F(DeliveryTest, drawsTheLossOfEachSentenceOnItsOwn) {
    faults.packetLossPercent = 50;
    random.wholeNumbers[100] = {49, 50, 99, 0};
    delivery->deliver({"a", "b", "c", "d"});
    EXPECT_THAT(sent, ElementsAre("b", "c"));
}

TEST_F(DeliveryTest, delaysByTheLatencyOfTheMomentAndKeepsTheOrder) {
    faults.latencyMs = 200;
    delivery->deliver({"a", "b"});
    faults.latencyMs = 0;
    loop.advance(199ms);
    EXPECT_THAT(sent, IsEmpty());
    loop.advance(1ms);
    EXPECT_THAT(sent, ElementsAre("a", "b"));
}

TEST_F(DeliveryTest, letsWhatComesLaterOvertakeWhereTheLatencyFell) {
    faults.latencyMs = 200;
    delivery->deliver({"a"});
    faults.latencyMs = 0;
    delivery->deliver({"b"});
    loop.advance(1s);
    EXPECT_THAT(sent, ElementsAre("b", "a"));
}

TEST_F(DeliveryTest, tellsWhetherItHoldsASentenceBack) {
    EXPECT_TRUE(delivery->isEmpty());
    faults.latencyMs = 200;
    delivery->deliver({"a"});
    loop.advance(100ms);
    delivery->deliver({"b"});
    loop.advance(100ms);
    EXPECT_FALSE(delivery->isEmpty());
    loop.advance(100ms);
    EXPECT_TRUE(delivery->isEmpty());
}

TEST_F(DeliveryTest, sendsNothingAnyMoreOnceItIsGone) {
    faults.latencyMs = 200;
    delivery->deliver({"a"});
    delivery.reset();
    loop.advance(1s);
    EXPECT_THAT(sent, IsEmpty());
}

}  // namespace
}  // namespace tidewright::faults
