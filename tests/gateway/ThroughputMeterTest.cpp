#include "gateway/ThroughputMeter.h"

#include "gateway/GatewayFixture.h"

namespace tidewright::gateway {
namespace {
using namespace std::chrono_literals;

TEST(ThroughputMeterTest, answersWhatWasCountedSinceTheLastReading) {
    ThroughputMeter meter;
    meter.addMessage();
    meter.addBytes(30);
    meter.addBytes(30);
    const Throughput first = meter.take();
    EXPECT_EQ(first.messagesPerSecond, 1);
    EXPECT_EQ(first.kilobytesPerSecond, 60.0 / 1024);
    EXPECT_EQ(meter.take().messagesPerSecond, 0);
}

struct ThroughputTest : GatewayFixture {};

TEST_F(ThroughputTest, countsASentenceOnBothTransportsOnceAndItsBytesTwice) {
    config.temperatureHz = 20;
    for (auto* other : {&config.gps, &config.heading, &config.boatSpeed, &config.wind,
                        &config.depth, &config.ais})
        *other = false;
    gateway.start();
    loop.advance(50ms);
    const auto size = static_cast<std::int64_t>(host.tcp->sentences.at(0).size());
    EXPECT_EQ(gateway.throughput().sentAccumulator(), 1);
    EXPECT_EQ(gateway.throughput().byteAccumulator(), 2 * size);
    loop.advance(950ms);
    EXPECT_EQ(gateway.messagesPerSecond, 20);
    EXPECT_EQ(gateway.kilobytesPerSecond, static_cast<double>(20 * 2 * size) / 1024);
}

TEST_F(ThroughputTest, carriesWhatAStopInterruptedIntoTheNextRun) {
    gateway.start();
    loop.advance(500ms);
    gateway.stop();
    const auto left = gateway.throughput().sentAccumulator();
    EXPECT_GT(left, 0);
    gateway.start();
    faults.stopStream = true;
    loop.advance(1s);
    EXPECT_EQ(gateway.messagesPerSecond, left);
}

}  // namespace
}  // namespace tidewright::gateway
