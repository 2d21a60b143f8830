#include <gtest/gtest.h>

#include "WindowBench.h"

namespace tidewright::ui {
namespace {

struct BridgesTest : testing::Test {
    WindowBench bench;
    EngineBridge& engine = *bench.engineBridge();
    ConfigBridge& config = *bench.configBridge();
    SimulatorBridge& simulator = *bench.simulatorBridge();

    template <typename Object, typename Signal>
    int countOf(Object& object, Signal signal, const std::function<void()>& action) {
        int count = 0;
        const auto connection = QObject::connect(&object, signal, [&] { ++count; });
        action();
        QObject::disconnect(connection);
        return count;
    }
};

TEST_F(BridgesTest, announceOnlyTheGroupThatChanged) {
    const auto move = [this] { engine.manual()->setSog(7.5); };
    EXPECT_EQ(countOf(*engine.manual(), &ManualBridge::changed, move), 1);
    EXPECT_EQ(countOf(*engine.anchorSettings(), &AnchorBridge::changed, move), 0);
    EXPECT_EQ(countOf(engine, &EngineBridge::instrumentsChanged, move), 0);
    EXPECT_EQ(bench.engine.manual->sog, 7.5);
}

TEST_F(BridgesTest, announceTheInstrumentsAtMostOnceATick) {
    simulator.start();
    EXPECT_LE(countOf(engine, &EngineBridge::instrumentsChanged, [this] { bench.advance(1000); }),
              10);
}

TEST_F(BridgesTest, lookAtTheGatewayTwentyTimesASecondAtMost) {
    simulator.start();
    EXPECT_LE(countOf(simulator, &SimulatorBridge::changed, [this] { bench.advance(1000); }), 20);
}

TEST_F(BridgesTest, translateRawTextsAndRefuseOthers) {
    engine.setMode(QStringLiteral("anchor"));
    engine.setMode(QStringLiteral("submarine"));
    EXPECT_EQ(engine.mode(), QStringLiteral("anchor"));
    engine.setProgram(QStringLiteral("beat"));
    EXPECT_EQ(bench.engine.program, simulation::SailingProgram::beat);
    engine.environment()->setWindPreset(QStringLiteral("strong"));
    engine.environment()->setWindPreset(QStringLiteral("gale"));
    EXPECT_EQ(bench.engine.environment->windPreset, simulation::WindPreset::strong);
}

TEST_F(BridgesTest, showPerformanceInPerCent) {
    engine.environment()->setPerformancePercent(90);
    EXPECT_EQ(bench.engine.environment->performance, 0.9);
    EXPECT_EQ(engine.environment()->performancePercent(), 90);
}

TEST_F(BridgesTest, applyAPresetByItsIdentifier) {
    config.setTcpEnabled(false);
    config.apply(QStringLiteral("nke"));
    EXPECT_EQ(config.preset(), QStringLiteral("nke"));
    EXPECT_EQ(config.tcpPort(), QStringLiteral("50000"));
    EXPECT_EQ(config.gpsTalker(), QStringLiteral("II"));
    EXPECT_TRUE(config.tcpEnabled());
}

TEST_F(BridgesTest, keepThePortWhenWhatWasTypedIsNone) {
    config.enterTcpPort(QStringLiteral("65536"));
    config.enterUdpPort(QStringLiteral("abc"));
    EXPECT_EQ(bench.config.tcpPort, 2000);
    EXPECT_EQ(bench.config.udpPort, 2000);
    config.enterTcpPort(QStringLiteral("0"));
    EXPECT_EQ(bench.config.tcpPort, 0);
}

TEST_F(BridgesTest, tellWhoListens) {
    EXPECT_EQ(simulator.clientText(), QStringLiteral("en attente de connexion"));
    bench.connectClients({QStringLiteral("10.0.0.2")});
    EXPECT_EQ(simulator.clientText(), QStringLiteral("1 client : 10.0.0.2"));
    bench.connectClients({QStringLiteral("10.0.0.2"), QStringLiteral("10.0.0.3")});
    EXPECT_EQ(simulator.clientText(), QString::fromUtf8("2 clients connectés"));
    config.setTcpEnabled(false);
    EXPECT_EQ(simulator.clientText(), QStringLiteral("UDP broadcast"));
}

TEST_F(BridgesTest, copyTheAddress) {
    simulator.copyAddress();
    EXPECT_EQ(bench.host.clipboard, "192.168.1.37");
}

}  // namespace
}  // namespace tidewright::ui
