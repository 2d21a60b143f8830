#include "gateway/GatewaySimulator.h"

#include <gmock/gmock.h>

#include <limits>
#include <memory>

#include "encoding/TagBlock.h"
#include "gateway/GatewayFixture.h"

namespace tidewright::gateway {
namespace {
using namespace std::chrono_literals;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

struct GatewaySimulatorTest : GatewayFixture {};

TEST_F(GatewaySimulatorTest, firesEveryFamilyOnTheFirstPumpInOrder) {
    config.aisTargetCount = 1;
    gateway.start();
    EXPECT_THAT(addresses(sentencesDuring(50ms)),
                ElementsAre("GPRMC", "GPGGA", "GPVTG", "IIHDT", "IIHDG", "IIVHW", "IIMWV", "IIMWV",
                            "IIDBT", "IIDPT", "IIMTW", "AIVDM", "AIVDM", "AIVDM"));
}

TEST_F(GatewaySimulatorTest, sendsTwentySevenAndAFifthSentencesASecondByDefault) {
    gateway.start();
    const auto minute = sentencesDuring(1min);
    EXPECT_EQ(minute.size(), 1632);  // 27.2 x 60
    EXPECT_EQ(countOf(minute, "GPRMC"), 60);
    EXPECT_EQ(countOf(minute, "IIHDT"), 300);
    EXPECT_EQ(countOf(minute, "IIVHW"), 120);
    EXPECT_EQ(countOf(minute, "IIMTW"), 12);
    EXPECT_EQ(countOf(minute, "AIVDM"), 5 * 60 + 6 * 5 * 2);
}

TEST_F(GatewaySimulatorTest, sendsTheSameBytesOnBothTransports) {
    gateway.start();
    loop.advance(1min);
    EXPECT_EQ(host.tcp->sentences, host.udp->sentences);
}

TEST_F(GatewaySimulatorTest, givesTheSameBytesForTheSameSeedAndStart) {
    const auto hour = [] {
        platform::VirtualMainLoop loop(GatewayFixture::noon);
        ScriptedRandom random;
        PretendHost host;
        Assembly assembly(host.host(loop, random));
        assembly.gateway.start();
        loop.advance(1h);
        return host.tcp->takeSentences();
    };
    const auto first = hour();
    EXPECT_EQ(first.size(), 27.2 * 3600);
    EXPECT_EQ(first, hour());
}

TEST_F(GatewaySimulatorTest, speaksAsTheChosenTalkerOnlyForTheGps) {
    config.apply(*std::ranges::find(GatewayPreset::all, "yacht-devices", &GatewayPreset::id));
    gateway.start();
    const auto sent = sentencesDuring(50ms);
    EXPECT_THAT(addresses({sent.begin(), sent.begin() + 11}),
                ElementsAre("GNRMC", "GNGGA", "GNVTG", "IIHDT", "IIHDG", "IIVHW", "IIMWV", "IIMWV",
                            "IIDBT", "IIDPT", "IIMTW"));
}

TEST_F(GatewaySimulatorTest, speaksAsIIThroughoutWithThePresetThatWantsIt) {
    config.apply(*std::ranges::find(GatewayPreset::all, "nke", &GatewayPreset::id));
    config.ais = false;
    gateway.start();
    EXPECT_THAT(addresses(sentencesDuring(50ms)),
                ElementsAre("IIRMC", "IIGGA", "IIVTG", "IIHDT", "IIHDG", "IIVHW", "IIMWV", "IIMWV",
                            "IIDBT", "IIDPT", "IIMTW"));
    const auto sent = sentencesDuring(10s);
    EXPECT_THAT(sent, SizeIs(212));  // of 27.2 a second, 6 are AIS
    EXPECT_THAT(sent, Each(StartsWith("$II")));
}

TEST_F(GatewaySimulatorTest, takesANewTalkerUpAtOnceAndANewRateAtTheNextStart) {
    gateway.start();
    loop.advance(10s);
    config.gpsTalker = "GN";
    config.headingHz = 1;
    const auto sent = sentencesDuring(10s);
    EXPECT_EQ(countOf(sent, "GNRMC"), 10);
    EXPECT_EQ(countOf(sent, "IIHDT"), 50);
    gateway.stop();
    gateway.start();
    EXPECT_EQ(countOf(sentencesDuring(10s), "IIHDT"), 10);
}

TEST_F(GatewaySimulatorTest, refusesToStartWithoutAnyOutput) {
    config.tcpEnabled = false;
    config.udpEnabled = false;
    gateway.start();
    EXPECT_FALSE(gateway.isRunning);
    EXPECT_EQ(gateway.lastError, "Activez au moins une sortie (TCP ou UDP).");
    EXPECT_THAT(gateway.consoleLines(), IsEmpty());
}

TEST_F(GatewaySimulatorTest, saysWhyTheTcpServerCannotStart) {
    host.tcp->startFailure = {"nmea.tcp", 1, "Port TCP invalide"};
    config.tcpPort = 0;
    gateway.start();
    EXPECT_FALSE(gateway.isRunning);
    EXPECT_EQ(gateway.lastError, "TCP 0 : Port TCP invalide");
    EXPECT_FALSE(host.udp->running);
    EXPECT_FALSE(engine.isTicking());
}

TEST_F(GatewaySimulatorTest, clearsTheLastErrorWithTheNextStart) {
    config.tcpEnabled = false;
    config.udpEnabled = false;
    gateway.start();
    config.tcpEnabled = true;
    gateway.start();
    EXPECT_EQ(gateway.lastError, std::nullopt);
    EXPECT_TRUE(gateway.isRunning);
}

TEST_F(GatewaySimulatorTest, stopsWithAMessageWhenThePortTurnsOutToBeTaken) {
    config.tcpPort = 2001;
    gateway.start();
    host.tcp->onFailed("Address already in use");
    EXPECT_FALSE(gateway.isRunning);
    EXPECT_EQ(gateway.lastError,
              "Le port TCP 2001 est déjà utilisé : une autre instance du simulateur tourne "
              "probablement. Quittez-la (ou changez de port), puis relancez.");
    EXPECT_EQ(systemLines().back(), "Simulation arrêtée");
    EXPECT_THAT(sentencesDuring(10s), IsEmpty());
}

TEST_F(GatewaySimulatorTest, ignoresAListenerFailureWhileStopped) {
    host.tcp->onFailed("Address already in use");
    EXPECT_EQ(gateway.lastError, std::nullopt);
}

TEST_F(GatewaySimulatorTest, namesItsOutputsWhenItStarts) {
    gateway.start();
    EXPECT_THAT(systemLines(), ElementsAre("Simulation démarrée — TCP 2000 · UDP 2000"));
}

TEST_F(GatewaySimulatorTest, namesTheOneOutputThatIsOn) {
    config.tcpEnabled = false;
    gateway.start();
    EXPECT_THAT(systemLines(), ElementsAre("Simulation démarrée — UDP 2000"));
    loop.advance(1s);
    EXPECT_THAT(host.tcp->sentences, IsEmpty());
    EXPECT_FALSE(host.udp->sentences.empty());
}

/// A gateway whose sentences also go into a file.
struct RecordedGatewayTest : testing::Test {
    platform::VirtualMainLoop loop{GatewayFixture::noon};
    ScriptedRandom random;
    PretendHost host;
    std::vector<std::string> recorded;
    Assembly assembly{recordedHost()};

    Host recordedHost() {
        Host made = host.host(loop, random);
        made.record = [this](const network::SharedBytes& each) { recorded.push_back(*each); };
        return made;
    }
};

TEST_F(RecordedGatewayTest, recordsEachSentenceOnceAsItLeavesDelivery) {
    assembly.config.tagBlock = true;
    assembly.faults.packetLossPercent = 30;
    random.wholeNumbers[100] = {10, 90, 10, 90};
    assembly.gateway.start();
    loop.advance(10s);
    EXPECT_EQ(recorded, host.tcp->sentences);
    EXPECT_EQ(recorded.size(), assembly.gateway.sentSentences());
}

TEST_F(RecordedGatewayTest, countsTheFileAsAnOutput) {
    assembly.config.tcpEnabled = false;
    assembly.config.udpEnabled = false;
    assembly.gateway.start();
    EXPECT_TRUE(assembly.gateway.isRunning);
    EXPECT_FALSE(assembly.gateway.isSilent());
    EXPECT_EQ(assembly.gateway.consoleLines().back().text, "Simulation démarrée — fichier");
    loop.advance(1s);
    EXPECT_FALSE(recorded.empty());
}

TEST(FreePortTest, takesThePortThatTheSystemPicksAndKeepsIt) {
    platform::VirtualMainLoop loop;
    ScriptedRandom random;
    PretendHost host;
    Host picking = host.host(loop, random);
    picking.picksTcpPort = true;
    Assembly assembly(std::move(picking));
    host.tcp->freePort = 51234;
    assembly.gateway.start();
    EXPECT_EQ(assembly.config.tcpPort, 51234);
    assembly.gateway.stop();
    assembly.gateway.start();
    EXPECT_EQ(host.tcp->startedPorts, (std::vector<std::uint16_t>{0, 51234}));
}

TEST(FreePortTest, saysThatThereIsNone) {
    platform::VirtualMainLoop loop;
    ScriptedRandom random;
    PretendHost host;
    Host picking = host.host(loop, random);
    picking.picksTcpPort = true;
    Assembly assembly(std::move(picking));
    host.tcp->freePort = std::nullopt;
    assembly.gateway.start();
    EXPECT_FALSE(assembly.gateway.isRunning);
    EXPECT_EQ(assembly.gateway.lastError, "TCP : aucun port libre.");
}

TEST_F(GatewaySimulatorTest, broadcastsToTheInterfaceFoundAtTheStart) {
    host.interface = network::LocalInterface{"wlan0", "Wi-Fi", "10.0.5.9", "10.0.255.255"};
    config.udpPort = 10110;
    gateway.start();
    EXPECT_EQ(gateway.interface->value().ip, "10.0.5.9");
    EXPECT_EQ(host.udp->starts.back(),
              (network::RecordingDatagramSender::Destination{"10.0.255.255", 10110}));
}

TEST_F(GatewaySimulatorTest, broadcastsToEverybodyWithoutAnInterface) {
    host.interface.reset();
    gateway.start();
    EXPECT_EQ(host.udp->starts.back().broadcast, "255.255.255.255");
}

TEST_F(GatewaySimulatorTest, sendsDatagramsWhereItIsTold) {
    config.udpDestination = "239.1.2.3";
    gateway.start();
    EXPECT_EQ(host.udp->starts.back().broadcast, "239.1.2.3");
    loop.advance(10s);
    EXPECT_EQ(host.udp->starts.size(), 1U);
}

TEST_F(GatewaySimulatorTest, staysWithItsNetworkUnlessToldToFollow) {
    gateway.start();
    host.interface = network::LocalInterface{"wlan0", "Wi-Fi", "10.0.5.9", "10.0.255.255"};
    loop.advance(10s);
    EXPECT_EQ(host.udp->starts.size(), 1U);
    EXPECT_EQ(gateway.interface->value().ip, "192.168.1.37");
}

TEST_F(GatewaySimulatorTest, followsTheMachineToItsNewNetworkWithinASecond) {
    config.udpDestination = std::string(udpFollowsNetwork);
    gateway.start();
    loop.advance(10s);
    EXPECT_EQ(host.udp->starts.size(), 1U);
    host.interface = network::LocalInterface{"wlan0", "Wi-Fi", "10.0.5.9", "10.0.255.255"};
    loop.advance(1s);
    EXPECT_EQ(host.udp->starts.back(),
              (network::RecordingDatagramSender::Destination{"10.0.255.255", 2000}));
    EXPECT_EQ(gateway.interface->value().ip, "10.0.5.9");
    EXPECT_EQ(systemLines().back(), "UDP vers 10.0.255.255");
    host.interface.reset();
    loop.advance(1s);
    EXPECT_EQ(host.udp->starts.back().broadcast, "255.255.255.255");
    EXPECT_EQ(host.udp->starts.size(), 3U);
}

TEST_F(GatewaySimulatorTest, followsAsItStartedWhateverIsChosenForTheNextStart) {
    config.udpDestination = std::string(udpFollowsNetwork);
    gateway.start();
    config.udpDestination = "239.1.2.3";
    config.udpPort = 3000;
    host.interface = network::LocalInterface{"wlan0", "Wi-Fi", "10.0.5.9", "10.0.255.255"};
    loop.advance(1s);
    EXPECT_EQ(host.udp->starts.back(),
              (network::RecordingDatagramSender::Destination{"10.0.255.255", 2000}));
}

TEST_F(GatewaySimulatorTest, takesANewDestinationUpAtTheNextStart) {
    gateway.start();
    config.udpDestination = std::string(udpFollowsNetwork);
    host.interface = network::LocalInterface{"wlan0", "Wi-Fi", "10.0.5.9", "10.0.255.255"};
    loop.advance(5s);
    EXPECT_EQ(host.udp->starts.size(), 1U);
    gateway.stop();
    gateway.start();
    EXPECT_EQ(host.udp->starts.back().broadcast, "10.0.255.255");
}

TEST_F(GatewaySimulatorTest, tellsTheServerItsLimitAtOnce) {
    gateway.start();
    config.tcpClientLimit = 3;
    EXPECT_EQ(host.tcp->limit, 3);
    config.tcpClientLimit = 0;
    EXPECT_EQ(host.tcp->limit, 0);
}

TEST_F(GatewaySimulatorTest, putsATagBlockBeforeEverySentenceOnBothTransports) {
    config.tagBlock = true;
    faults.latencyMs = 100;
    gateway.start();
    loop.advance(150ms);
    const auto sent = host.tcp->takeSentences();
    ASSERT_FALSE(sent.empty());
    EXPECT_EQ(sent, host.udp->takeSentences());
    const std::string whenItLeaves = encoding::tagBlock(noon + 150ms);
    for (const std::string& each : sent)
        EXPECT_TRUE(each.starts_with(whenItLeaves + "$") || each.starts_with(whenItLeaves + "!"))
            << each;
    config.tagBlock = false;
    loop.advance(1s);
    EXPECT_EQ(host.tcp->takeSentences().front().front(), '$');
}

TEST_F(GatewaySimulatorTest, doesNothingWhenStartedOrStoppedTwice) {
    gateway.stop();
    gateway.start();
    gateway.start();
    EXPECT_EQ(host.tcp->startedPorts.size(), 1);
    gateway.stop();
    gateway.stop();
    EXPECT_EQ(systemLines().size(), 2);
}

TEST_F(GatewaySimulatorTest, freezesTheBoatAndItsFiguresWhenItStops) {
    gateway.start();
    connect({"10.0.0.9"});
    loop.advance(2s);
    EXPECT_GT(gateway.messagesPerSecond, 0);
    gateway.stop();
    const auto state = engine.state.get();
    loop.advance(10s);
    EXPECT_EQ(engine.state, state);
    EXPECT_EQ(gateway.messagesPerSecond, 0);
    EXPECT_EQ(gateway.kilobytesPerSecond, 0);
    EXPECT_THAT(gateway.tcpClients.get(), IsEmpty());
    EXPECT_THAT(gateway.clients.get(), IsEmpty());
}

TEST_F(GatewaySimulatorTest, tellsSinceWhenEachClientIsThere) {
    gateway.start();
    connect({"10.0.0.9"});
    loop.advance(3s);
    connect({"10.0.0.9", "10.0.0.10"});
    EXPECT_THAT(gateway.clients.get(), ElementsAre(GatewayClient{1, "10.0.0.9", noon, 0, 0},
                                                   GatewayClient{2, "10.0.0.10", noon + 3s, 0, 0}));
    EXPECT_THAT(gateway.tcpClients.get(), ElementsAre("10.0.0.9", "10.0.0.10"));
}

TEST_F(GatewaySimulatorTest, asksWhatItsClientsWereSentWhileThereAreAny) {
    gateway.start();
    loop.advance(2s);
    EXPECT_EQ(host.tcp->askForTrafficCalls, 0);
    connect({"10.0.0.9"});
    loop.advance(2s);
    EXPECT_EQ(host.tcp->askForTrafficCalls, 2);
}

TEST_F(GatewaySimulatorTest, tellsWhatEachClientWasSentAndMissed) {
    gateway.start();
    connect({"10.0.0.9", "10.0.0.10"});
    host.tcp->onTraffic({{7, 70, 7}, {2, 200, 3}, {1, 100, 0}});
    EXPECT_THAT(gateway.clients.get(), ElementsAre(GatewayClient{1, "10.0.0.9", noon, 100, 0},
                                                   GatewayClient{2, "10.0.0.10", noon, 200, 3}));
    connect({"10.0.0.9"});
    EXPECT_THAT(gateway.clients.get(), ElementsAre(GatewayClient{1, "10.0.0.9", noon, 100, 0}));
}

TEST_F(GatewaySimulatorTest, wakesNobodyForTrafficThatIsTheSame) {
    gateway.start();
    connect({"10.0.0.9"});
    int changes = 0;
    const auto watch = gateway.observe([&] { ++changes; });
    host.tcp->onTraffic({{1, 100, 0}});
    EXPECT_EQ(changes, 1);
    host.tcp->onTraffic({{1, 100, 0}});
    EXPECT_EQ(changes, 1);
}

TEST_F(GatewaySimulatorTest, tellsWhatEachTransportDropped) {
    host.tcp->drops = {.thread = 1, .client = 2};
    host.udp->drops = {.thread = 3, .socket = 4};
    EXPECT_EQ(gateway.droppedOverTCP(), host.tcp->drops);
    EXPECT_EQ(gateway.droppedOverUDP(), host.udp->drops);
}

TEST_F(GatewaySimulatorTest, dropsOneClientAndSaysWhich) {
    gateway.start();
    connect({"10.0.0.9", "10.0.0.10"});
    gateway.dropClient(2);
    EXPECT_THAT(host.tcp->dropped, ElementsAre(2));
    EXPECT_EQ(systemLines().back(), "Client TCP lâché : 10.0.0.10");
}

TEST_F(GatewaySimulatorTest, dropsNobodyForANumberThatNobodyHas) {
    gateway.start();
    connect({"10.0.0.9"});
    gateway.dropClient(2);
    EXPECT_THAT(host.tcp->dropped, IsEmpty());
    EXPECT_EQ(systemLines().size(), 1);
}

TEST_F(GatewaySimulatorTest, keepsWhereTheBoatReallyWasOnceASecond) {
    faults.disableGPS = true;
    gateway.start();
    const auto home = engine.state.get();
    loop.advance(10s);
    const auto& points = gateway.track().points();
    ASSERT_EQ(points.size(), 11U);
    EXPECT_EQ(points.front(), (simulation::TrackPoint{noon, home.latitude, home.longitude}));
    EXPECT_EQ(points.back(), (simulation::TrackPoint{noon + 10s, engine.state->latitude,
                                                     engine.state->longitude}));
    gateway.stop();
    loop.advance(10s);
    EXPECT_EQ(points.size(), 11U);
}

TEST_F(GatewaySimulatorTest, beginsANewTrackWithEveryRun) {
    gateway.start();
    loop.advance(10s);
    gateway.stop();
    loop.advance(10s);
    gateway.start();
    ASSERT_EQ(gateway.track().points().size(), 1U);
    EXPECT_EQ(gateway.track().points().front().time, noon + 20s);
}

TEST_F(GatewaySimulatorTest, keepsTheRhythmOfStaticReportsThroughARestart) {
    config.aisTargetCount = 1;
    gateway.start();
    loop.advance(3s);
    const auto countdown = gateway.aisReports().staticCountdown();
    const int sequence = gateway.aisReports().sequence();
    gateway.stop();
    gateway.start();
    EXPECT_EQ(gateway.aisReports().staticCountdown(), countdown);
    EXPECT_EQ(gateway.aisReports().sequence(), sequence);
}

TEST_F(GatewaySimulatorTest, countsAnEmissionWithoutVesselsInTheRhythm) {
    config.aisTargetCount = 0;
    gateway.start();
    EXPECT_EQ(countOf(sentencesDuring(50ms), "AIVDM"), 0);
    EXPECT_EQ(gateway.aisReports().staticCountdown(), 10);
    EXPECT_EQ(countOf(sentencesDuring(1s), "AIVDM"), 0);
    EXPECT_EQ(gateway.aisReports().staticCountdown(), 9);
}

TEST_F(GatewaySimulatorTest, putsNoVesselsOutWhileAisIsOff) {
    config.ais = false;
    gateway.start();
    EXPECT_THAT(engine.traffic.targets, IsEmpty());
    config.ais = true;
    gateway.regenerateAIS();
    EXPECT_EQ(engine.traffic.targets.size(), 5);
}

TEST_F(GatewaySimulatorTest, makesTheFleetAnewWhileStoppedToo) {
    config.aisTargetCount = 7;
    gateway.regenerateAIS();
    EXPECT_EQ(engine.traffic.targets.size(), 7);
}

TEST_F(GatewaySimulatorTest, saysThatMemoryLacksForTheFleetAndUndoesTheStart) {
    config.aisTargetCount = std::numeric_limits<std::int64_t>::max();
    gateway.start();
    EXPECT_FALSE(gateway.isRunning);
    EXPECT_EQ(gateway.lastError, "Mémoire insuffisante pour 9223372036854775807 cibles AIS.");
    EXPECT_FALSE(host.tcp->running);
    EXPECT_FALSE(host.udp->running);
    EXPECT_FALSE(engine.isTicking());
}

TEST_F(GatewaySimulatorTest, leavesNoGapWhenTheWallClockJumpsAnHour) {
    gateway.start();
    loop.advance(5s);
    for (const auto jump : {1h, -2h, 1h}) {
        loop.stepWallClock(jump);
        EXPECT_EQ(countOf(sentencesDuring(10s), "IIHDT"), 50);
    }
}

TEST_F(GatewaySimulatorTest, stampsSentencesWithTheWallClock) {
    gateway.start();
    loop.advance(1s);
    loop.stepWallClock(-1h);
    loop.advance(100ms);
    EXPECT_THAT(sentencesDuring(1s), Contains(StartsWith("$GPRMC,110002.00,A,")));
}

TEST_F(GatewaySimulatorTest, goesOnAfterAStallWithoutABurst) {
    gateway.start();
    loop.advance(10s);
    loop.stall(60s);
    const auto late = sentencesDuring(50ms);
    EXPECT_EQ(countOf(late, "GPRMC"), 1);
    EXPECT_LE(countOf(late, "IIHDT"), 2);
    EXPECT_EQ(countOf(sentencesDuring(10s), "IIHDT"), 50);
}

TEST_F(GatewaySimulatorTest, tellsObserversAfterTheChange) {
    bool running = false;
    const auto subscription = gateway.observe([&] { running = running || gateway.isRunning; });
    gateway.start();
    EXPECT_TRUE(running);
}

TEST(GatewayLifetimeTest, sendsNothingOnceItIsGone) {
    platform::VirtualMainLoop loop;
    ScriptedRandom random;
    PretendHost host;
    auto assembly = std::make_unique<Assembly>(host.host(loop, random));
    assembly->faults.latencyMs = 500;
    assembly->gateway.start();
    loop.advance(100ms);
    assembly.reset();
    loop.advance(1s);  // what still waits must not touch the gateway: the sanitizers would tell
    EXPECT_EQ(loop.now().time_since_epoch(), 1100ms);
}

TEST_F(GatewaySimulatorTest, isSilentWithoutAnOutputThatIsOpenAndOn) {
    config.udpEnabled = false;
    gateway.start();
    EXPECT_FALSE(gateway.isSilent());
    config.tcpEnabled = false;
    EXPECT_TRUE(gateway.isSilent());
    config.udpEnabled = true;  // opens at the next start
    EXPECT_TRUE(gateway.isSilent());
    gateway.stop();
    EXPECT_FALSE(gateway.isSilent());
    gateway.start();
    EXPECT_FALSE(gateway.isSilent());
}

TEST_F(GatewaySimulatorTest, isSilentWithoutAFamilyToSend) {
    for (auto* each : {&config.gps, &config.heading, &config.boatSpeed, &config.wind, &config.depth,
                       &config.temperature, &config.ais})
        *each = false;
    gateway.start();
    EXPECT_TRUE(gateway.isSilent());
}

}  // namespace
}  // namespace tidewright::gateway
