#include "scenario/Quantity.h"

#include <gtest/gtest.h>

#include "gateway/GatewayFixture.h"

namespace tidewright::scenario {
namespace {
using namespace std::chrono_literals;

struct QuantityTest : gateway::GatewayFixture {
    std::optional<double> valueOf(std::string_view name) const {
        return findQuantity(name)->read(assembly);
    }
};

TEST_F(QuantityTest, isFoundByItsName) {
    for (const Quantity& each : quantities) EXPECT_EQ(findQuantity(each.name), &each);
    EXPECT_EQ(findQuantity("crew"), nullptr);
}

TEST_F(QuantityTest, countsClientsSentencesAndConnections) {
    gateway.start();
    connect({"192.168.1.20", "192.168.1.21"});
    host.tcp->accepted = 7;
    loop.advance(1s);
    EXPECT_EQ(valueOf("clients"), 2);
    EXPECT_EQ(valueOf("connections"), 7);
    EXPECT_EQ(valueOf("sentences"), static_cast<double>(host.tcp->sentences.size()));
    EXPECT_GT(valueOf("sentences"), 10);
}

TEST_F(QuantityTest, isTrueWhateverFaultsMakeOfIt) {
    gateway.start();
    loop.advance(5s);
    faults.frozenPosition = true;
    loop.advance(30s);
    EXPECT_EQ(valueOf("sog"), engine.state->sog);
    EXPECT_EQ(valueOf("depth"), engine.state->depth);
}

TEST_F(QuantityTest, knowsTheDistanceFromTheAnchorAtAnchorAlone) {
    gateway.start();
    EXPECT_EQ(valueOf("anchor-distance"), std::nullopt);
    engine.mode = simulation::ControlMode::anchor;
    EXPECT_NEAR(valueOf("anchor-distance").value_or(0), 0.82 * 45, 1e-9);
    engine.mode = simulation::ControlMode::manual;
    EXPECT_EQ(valueOf("anchor-distance"), std::nullopt);
}

}  // namespace
}  // namespace tidewright::scenario
