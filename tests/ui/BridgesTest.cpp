#include <gtest/gtest.h>

#include <cmath>

#include "WindowBench.h"

namespace tidewright::ui {
namespace {

struct BridgesTest : testing::Test {
    WindowBench bench;
    EngineBridge& engine = *bench.engineBridge();
    SettingsBridge& settings = *bench.settingsBridge();
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

TEST_F(BridgesTest, announceOnlyTheSettingThatChanged) {
    NumberSetting* speed = settings.number(QStringLiteral("manual.speed"));
    const auto move = [this, speed] { speed->setValue(bench.engine.manual->sog + 1); };
    EXPECT_EQ(countOf(*speed, &SettingBridge::changed, move), 1);
    for (const char* other : {"manual.depth", "anchor.chain-length", "rates.wind"}) {
        const auto* row = settings.number(QString::fromUtf8(other));
        EXPECT_EQ(countOf(*row, &SettingBridge::changed, move), 0) << other;
    }
    EXPECT_EQ(countOf(engine, &EngineBridge::instrumentsChanged, move), 0);
    EXPECT_EQ(bench.engine.manual->sog, 11);
}

TEST_F(BridgesTest, announceNothingOfTheSettingsWhileTheBoatSails) {
    int count = 0;
    for (const auto* each : settings.findChildren<SettingBridge*>())
        QObject::connect(each, &SettingBridge::changed, [&count] { ++count; });
    simulator.start();
    bench.advance(10'000);
    EXPECT_EQ(count, 0);
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

TEST_F(BridgesTest, refuseTextsThatAreNoChoice) {
    ChoiceSetting* mode = settings.choice(QStringLiteral("boat.mode"));
    mode->setValue(QStringLiteral("anchor"));
    mode->setValue(QStringLiteral("submarine"));
    EXPECT_EQ(mode->value(), QStringLiteral("anchor"));
    EXPECT_EQ(bench.engine.mode, simulation::ControlMode::anchor);
}

TEST_F(BridgesTest, refuseNumbersOutOfRange) {
    NumberSetting* depth = settings.number(QStringLiteral("manual.depth"));
    for (const double each : {0.5, 100.5, std::nan("")}) depth->setValue(each);
    EXPECT_EQ(depth->value(), 12);
}

TEST_F(BridgesTest, showPerformanceInPerCent) {
    NumberSetting* performance = settings.number(QStringLiteral("boat.performance"));
    performance->setValue(115);
    EXPECT_EQ(bench.engine.environment->performance, 1.15);
    EXPECT_EQ(performance->value(), 115);
    EXPECT_EQ(performance->text(), QStringLiteral("115 %"));
}

TEST_F(BridgesTest, applyTheSamePresetAgain) {
    bench.set(QStringLiteral("network.tcp-port"), 1);
    EXPECT_TRUE(settings.presetModified());
    settings.choice(QStringLiteral("network.preset"))->setValue(QStringLiteral("digital-yacht"));
    EXPECT_EQ(bench.assembly.config.tcpPort, 2000);
    EXPECT_FALSE(settings.presetModified());
}

TEST_F(BridgesTest, readPortsAsPeopleTypeThem) {
    const NumberSetting* port = settings.number(QStringLiteral("network.tcp-port"));
    EXPECT_EQ(port->read(QStringLiteral(" 2001 ")), 2001);
    EXPECT_EQ(port->read(QStringLiteral("0")), 0);
    for (const char* text : {"65536", "-1", "abc", "", "20.5", "2 0", "1e3"})
        EXPECT_TRUE(std::isnan(port->read(QString::fromUtf8(text)))) << text;
}

TEST_F(BridgesTest, lockWhatActsAtTheNextStartWhileRunning) {
    const auto* port = settings.number(QStringLiteral("network.tcp-port"));
    const auto* output = settings.flag(QStringLiteral("network.tcp"));
    const auto* talker = settings.choice(QStringLiteral("network.talker"));
    simulator.start();
    EXPECT_TRUE(port->locked());
    EXPECT_FALSE(output->locked()) << "an output can be muted at any time";
    EXPECT_FALSE(talker->locked());
    simulator.stop();
    EXPECT_FALSE(port->locked());
}

TEST_F(BridgesTest, tellWhoListens) {
    EXPECT_EQ(simulator.clientText(), QStringLiteral("en attente de connexion"));
    bench.connectClients({QStringLiteral("10.0.0.2")});
    EXPECT_EQ(simulator.clientText(), QStringLiteral("1 client : 10.0.0.2"));
    bench.connectClients({QStringLiteral("10.0.0.2"), QStringLiteral("10.0.0.3")});
    EXPECT_EQ(simulator.clientText(), QString::fromUtf8("2 clients connectés"));
    bench.set(QStringLiteral("network.tcp"), false);
    EXPECT_EQ(simulator.clientText(), QStringLiteral("UDP broadcast"));
}

TEST_F(BridgesTest, copyTheAddress) {
    simulator.copyAddress();
    EXPECT_EQ(bench.host.clipboard, "192.168.1.37");
}

}  // namespace
}  // namespace tidewright::ui
