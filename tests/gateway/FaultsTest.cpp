#include <gmock/gmock.h>

#include <algorithm>

#include "encoding/NMEAChecksum.h"
#include "gateway/GatewayFixture.h"
#include "platform/PacedMainLoop.h"

namespace tidewright::gateway {
namespace {
using namespace std::chrono_literals;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

struct FaultsTest : GatewayFixture {
    FaultsTest() { gateway.start(); }

    void loseOneOf(std::initializer_list<int> draws) {
        for (const int each : draws) random.wholeNumbers[100].push_back(each);
    }
};

bool hasRightChecksum(const std::string& sentence) {
    const std::string_view body(sentence.data() + 1, sentence.find('*') - 1);
    return encoding::NMEAChecksum::sentence(sentence.front(), body, false) == sentence;
}

TEST_F(FaultsTest, sendsNothingWhileTheStreamIsCutAndEverythingAtOnceAfterwards) {
    loop.advance(10s);
    faults.stopStream = true;
    EXPECT_THAT(sentencesDuring(10s), IsEmpty());
    EXPECT_EQ(gateway.messagesPerSecond, 0);
    EXPECT_EQ(gateway.kilobytesPerSecond, 0);
    faults.stopStream = false;
    EXPECT_THAT(addresses(sentencesDuring(50ms)), Contains("IIMTW"));
    EXPECT_EQ(countOf(host.udp->sentences, "GPRMC"), 11);
}

TEST_F(FaultsTest, stillSendsWhatWaitsForItsLatencyWhenTheStreamIsCut) {
    faults.latencyMs = 300;
    loop.advance(100ms);
    faults.stopStream = true;
    EXPECT_THAT(sentencesDuring(1s), Not(IsEmpty()));
    EXPECT_THAT(sentencesDuring(1s), IsEmpty());
}

TEST_F(FaultsTest, silencesTheGpsAndNothingElse) {
    faults.disableGPS = true;
    const auto sent = sentencesDuring(10s);
    EXPECT_EQ(countOf(sent, "GPRMC") + countOf(sent, "GPGGA") + countOf(sent, "GPVTG"), 0);
    EXPECT_EQ(countOf(sent, "IIHDT"), 50);
    EXPECT_EQ(countOf(sent, "IIHDG"), 50);
}

TEST_F(FaultsTest, silencesTheWind) {
    faults.disableWind = true;
    EXPECT_EQ(countOf(sentencesDuring(10s), "IIMWV"), 0);
}

TEST_F(FaultsTest, silencesAisAndStandsItsRhythmStill) {
    loop.advance(3s);
    const auto countdown = gateway.aisReports().staticCountdown();
    faults.disableAIS = true;
    EXPECT_EQ(countOf(sentencesDuring(10s), "AIVDM"), 0);
    EXPECT_EQ(gateway.aisReports().staticCountdown(), countdown);
}

TEST_F(FaultsTest, keepsTheSlotOfASilencedFamily) {
    faults.disableGPS = true;
    loop.advance(500ms);
    faults.disableGPS = false;
    EXPECT_EQ(countOf(sentencesDuring(500ms), "GPRMC"), 0);  // its turn passed at 50 ms
    EXPECT_EQ(countOf(sentencesDuring(50ms), "GPRMC"), 1);
}

TEST_F(FaultsTest, invertsEveryChecksumWhileAsked) {
    EXPECT_TRUE(std::ranges::all_of(sentencesDuring(1s), hasRightChecksum));
    faults.invalidChecksum = true;
    const auto corrupt = sentencesDuring(10s);
    EXPECT_TRUE(std::ranges::none_of(corrupt, hasRightChecksum));
    EXPECT_EQ(countOf(corrupt, "AIVDM"), 60);
}

TEST_F(FaultsTest, losesEverythingAtAHundredPercent) {
    faults.packetLossPercent = 100;
    loseOneOf({99, 99, 99});
    EXPECT_THAT(sentencesDuring(3s), IsEmpty());
    EXPECT_EQ(gateway.aisReports().staticCountdown(), 8)
        << "everything is due and made all the same";
    EXPECT_EQ(gateway.messagesPerSecond, 0);
    EXPECT_EQ(gateway.kilobytesPerSecond, 0);
    EXPECT_TRUE(gateway.isRunning);
}

TEST_F(FaultsTest, drawsForEachSentenceOnItsOwn) {
    faults.packetLossPercent = 50;
    loseOneOf({49, 50, 99, 0, 50});
    const auto sent = sentencesDuring(50ms);
    EXPECT_EQ(addresses({sent.begin(), sent.begin() + 3}),
              (std::vector<std::string>{"GPGGA", "GPVTG", "IIHDG"}));
}

TEST_F(FaultsTest, losesAboutHalfAtFiftyPercent) {
    faults.packetLossPercent = 50;
    for (int i = 0; i < 20000; ++i) random.wholeNumbers[100].push_back(i * 37 % 100);
    EXPECT_NEAR(static_cast<double>(sentencesDuring(5min).size()), 27.2 * 300 / 2, 10);
}

TEST_F(FaultsTest, losesNothingAndDrawsNothingBelowOnePercent) {
    random.wholeNumbers[100].push_back(0);
    for (const int percent : {0, -5}) {
        faults.packetLossPercent = percent;
        EXPECT_EQ(sentencesDuring(10s).size(), 272);
    }
    EXPECT_EQ(random.wholeNumbers[100].size(), 1);
}

TEST_F(FaultsTest, drawsTheLossBeforeItWaits) {
    faults.packetLossPercent = 50;
    faults.latencyMs = 1000;
    loseOneOf({0});
    loop.advance(50ms);
    faults.packetLossPercent = 0;
    EXPECT_THAT(addresses(sentencesDuring(1s)), Not(Contains("GPRMC")));
}

TEST_F(FaultsTest, delaysEachSentenceAndKeepsTheirOrder) {
    faults.disableAIS = true;  // whose static reports come with the first emission only
    const auto onTime = addresses(sentencesDuring(50ms));
    gateway.stop();
    faults.latencyMs = 200;
    gateway.start();
    EXPECT_THAT(sentencesDuring(249ms), IsEmpty());
    EXPECT_EQ(addresses(sentencesDuring(1ms)), onTime);
}

TEST_F(FaultsTest, letsAShorterLatencyOvertake) {
    faults.latencyMs = 500;
    loop.advance(50ms);
    faults.latencyMs = 0;
    const auto sent = addresses(sentencesDuring(1s));
    EXPECT_LT(std::ranges::find(sent, "IIHDT"), std::ranges::find(sent, "GPRMC"));
}

TEST_F(FaultsTest, countsAndLogsWhatTheStopLeftWaiting) {
    faults.latencyMs = 2000;
    loop.advance(2s);
    gateway.stop();
    const auto before = gateway.consoleAppendedCount();
    loop.advance(3s);
    const auto waited = gateway.throughput().sentAccumulator();
    EXPECT_GT(waited, 50);
    EXPECT_EQ(gateway.consoleAppendedCount() - before, 2 * waited);
    EXPECT_GT(gateway.throughput().byteAccumulator(), 0);
}

TEST_F(FaultsTest, dropsTheClientsEveryEightSecondsWhileAnyIsThere) {
    faults.randomDisconnections = true;
    connect({"10.0.0.9"});
    loop.advance(7999ms);
    EXPECT_EQ(host.tcp->dropAllClientsCalls, 0);
    loop.advance(1ms);
    EXPECT_EQ(host.tcp->dropAllClientsCalls, 1);
    loop.advance(8s);
    EXPECT_EQ(host.tcp->dropAllClientsCalls, 2);
}

TEST_F(FaultsTest, logsNoDropWithoutClients) {
    faults.randomDisconnections = true;
    faults.stopStream = true;
    loop.advance(1min);
    EXPECT_EQ(host.tcp->dropAllClientsCalls, 0);
    EXPECT_THAT(systemLines(), ElementsAre("Simulation démarrée — TCP 2000 · UDP 2000"));
}

TEST_F(FaultsTest, logsTheDropAskedForEvenWithoutClients) {
    gateway.dropClients();
    EXPECT_EQ(host.tcp->dropAllClientsCalls, 1);
    EXPECT_EQ(systemLines().back(), "Clients TCP lâchés");
}

TEST_F(FaultsTest, surviveAStopAndAStart) {
    faults.disableWind = true;
    gateway.stop();
    gateway.start();
    EXPECT_EQ(countOf(sentencesDuring(10s), "IIMWV"), 0);
}

TEST_F(FaultsTest, leaveTheGatewaySilentWhereNothingGetsOut) {
    EXPECT_FALSE(gateway.isSilent());
    faults.stopStream = true;
    EXPECT_TRUE(gateway.isSilent());
    faults.stopStream = false;
    faults.packetLossPercent = 100;
    EXPECT_TRUE(gateway.isSilent());
    faults.packetLossPercent = 99;
    EXPECT_FALSE(gateway.isSilent());
}

/// A run ten times as fast as the machine.
TEST(ConnectionFaultsTest, goByTheMachineSClockInARunWithOneOfItsOwn) {
    platform::VirtualMainLoop machine;
    platform::PacedMainLoop run(machine, GatewayFixture::noon, 10);
    ScriptedRandom random;
    PretendHost host;
    Assembly assembly(host.host(run, machine, random));
    assembly.faults.randomDisconnections = true;
    assembly.gateway.start();
    host.tcp->onClientsChanged(network::numberedClients({"192.168.1.20"}));
    machine.advance(7999ms);
    EXPECT_EQ(host.tcp->dropAllClientsCalls, 0);
    machine.advance(1ms);
    EXPECT_EQ(host.tcp->dropAllClientsCalls, 1);
}

}  // namespace
}  // namespace tidewright::gateway
