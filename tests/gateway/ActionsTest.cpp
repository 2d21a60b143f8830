#include "gateway/Actions.h"

#include <gmock/gmock.h>

#include <set>

#include "gateway/GatewayFixture.h"

namespace tidewright::gateway {
namespace {
using namespace std::chrono_literals;
using simulation::ControlMode;

struct ActionsTest : GatewayFixture {
    /// Why it cannot be done; empty where it was.
    std::string perform(const std::string& name) const {
        return assembly.actions.find(name)->perform().value_or("");
    }
};

TEST_F(ActionsTest, haveEachANameOfTheirOwnAndALabel) {
    std::set<std::string> names;
    for (const Action& each : assembly.actions.all()) {
        EXPECT_TRUE(names.insert(each.name).second) << each.name;
        EXPECT_FALSE(each.label.empty()) << each.name;
    }
    EXPECT_EQ(assembly.actions.find("sink"), nullptr);
}

TEST_F(ActionsTest, startStopAndRestart) {
    EXPECT_EQ(perform("start"), "");
    EXPECT_TRUE(gateway.isRunning);
    EXPECT_EQ(perform("start"), "");
    config.tcpPort = 3000;
    EXPECT_EQ(perform("restart"), "");
    EXPECT_EQ(host.tcp->startedPorts.back(), 3000);
    EXPECT_EQ(perform("stop"), "");
    EXPECT_FALSE(gateway.isRunning);
    EXPECT_EQ(perform("stop"), "");
}

TEST_F(ActionsTest, sayWhyAStartFails) {
    config.tcpEnabled = false;
    config.udpEnabled = false;
    EXPECT_EQ(perform("start"), "Activez au moins une sortie (TCP ou UDP).");
    EXPECT_EQ(perform("restart"), "Activez au moins une sortie (TCP ou UDP).");
}

TEST_F(ActionsTest, dropNobodyWhereNobodyIs) {
    EXPECT_EQ(perform("drop-clients"), "L'émission est arrêtée.");
    gateway.start();
    EXPECT_EQ(perform("drop-clients"), "");
    EXPECT_EQ(host.tcp->dropAllClientsCalls, 1);
}

TEST_F(ActionsTest, manoeuvreOnlyUnderSailAndOneAtATime) {
    EXPECT_EQ(perform("tack"), "L'émission est arrêtée.");
    gateway.start();
    EXPECT_EQ(perform("tack"), "");
    loop.advance(200ms);
    EXPECT_EQ(engine.sailing().tackCount, 1);
    EXPECT_EQ(perform("gybe"), "Une manœuvre est déjà en cours.");
    EXPECT_EQ(engine.sailing().gybeCount, 0);
    engine.mode = ControlMode::manual;
    EXPECT_EQ(perform("gybe"), "Le bateau ne manœuvre de lui-même qu'en mode Auto.");
}

TEST_F(ActionsTest, saysBeforehandWhatStandsInTheWay) {
    const Action& tack = *assembly.actions.find("tack");
    EXPECT_EQ(tack.obstacle(), "L'émission est arrêtée.");
    gateway.start();
    EXPECT_EQ(tack.obstacle(), std::nullopt);
    EXPECT_EQ(engine.sailing().tackCount, 0);
}

TEST_F(ActionsTest, dropTheAnchorAnewWhereTheBoatIs) {
    gateway.start();
    EXPECT_EQ(perform("drop-anchor"), "L'ancre ne se mouille qu'en mode Mouillage.");
    engine.mode = ControlMode::anchor;
    simulation::BoatState elsewhere = engine.state;
    elsewhere.latitude = 10;
    engine.state = elsewhere;
    EXPECT_EQ(perform("drop-anchor"), "");
    EXPECT_NEAR(engine.anchor()->anchorLatitude, 10, 0.001);
}

TEST_F(ActionsTest, makeTheFleetAnew) {
    gateway.start();
    const auto before = engine.traffic.targets;
    engine.traffic.targets.clear();
    EXPECT_EQ(perform("regenerate-ais"), "");
    EXPECT_EQ(engine.traffic.targets.size(), before.size());
}

TEST_F(ActionsTest, clearTheConsoleTheFaultsAndTheSettings) {
    gateway.start();
    EXPECT_EQ(perform("clear-console"), "");
    EXPECT_TRUE(gateway.consoleLines().empty());
    faults.disableGPS = true;
    config.tagBlock = true;
    EXPECT_EQ(perform("clear-faults"), "");
    EXPECT_FALSE(faults.disableGPS);
    EXPECT_TRUE(config.tagBlock);
    EXPECT_EQ(perform("reset"), "");
    EXPECT_FALSE(config.tagBlock);
}

}  // namespace
}  // namespace tidewright::gateway
