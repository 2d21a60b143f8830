#include "gateway/SimulationConfig.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tidewright::gateway {
namespace {

const GatewayPreset& preset(std::string_view id) {
    return *std::ranges::find(GatewayPreset::all, id, &GatewayPreset::id);
}

TEST(SimulationConfigTest, beginsWithTheFirstPreset) {
    const SimulationConfig config;
    EXPECT_EQ(config.preset, GatewayPreset::all.front());
    EXPECT_EQ(config.tcpPort, 2000);
    EXPECT_EQ(config.udpPort, 2000);
    EXPECT_EQ(config.gpsTalker.get(), "GP");
    EXPECT_EQ(config.aisTargetCount, 5);
}

TEST(SimulationConfigTest, takesPortsAndTalkerFromAPreset) {
    SimulationConfig config;
    config.apply(preset("nke"));
    EXPECT_EQ(config.preset->id, "nke");
    EXPECT_EQ(config.tcpPort, 50000);
    EXPECT_EQ(config.udpPort, 50000);
    EXPECT_EQ(config.gpsTalker.get(), "II");
}

TEST(SimulationConfigTest, switchesBothOutputsOnAgainWithAnyPreset) {
    SimulationConfig config;
    config.tcpEnabled = false;
    config.udpEnabled = false;
    config.apply(preset("generic"));
    EXPECT_TRUE(config.tcpEnabled);
    EXPECT_TRUE(config.udpEnabled);
}

TEST(SimulationConfigTest, leavesSentencesRatesAndAisAlone) {
    SimulationConfig config;
    config.wind = false;
    config.headingHz = 10;
    config.aisTargetCount = 42;
    config.apply(preset("yacht-devices"));
    EXPECT_FALSE(config.wind);
    EXPECT_EQ(config.headingHz, 10);
    EXPECT_EQ(config.aisTargetCount, 42);
}

TEST(SimulationConfigTest, tellsObserversAgainWhenTheSamePresetIsApplied) {
    SimulationConfig config;
    int told = 0;
    const auto subscription = config.observe([&] { ++told; });
    config.apply(config.preset);
    EXPECT_EQ(told, 6);
}

TEST(SimulationConfigTest, keepsWhateverItIsGiven) {
    SimulationConfig config;
    config.tcpPort = 0;
    config.windHz = -3;
    config.aisTargetCount = -1;
    EXPECT_EQ(config.tcpPort, 0);
    EXPECT_EQ(config.windHz, -3);
    EXPECT_EQ(config.aisTargetCount, -1);
}

TEST(SimulationConfigTest, knowsWhetherItStillIsWhatThePresetBrought) {
    SimulationConfig config;
    EXPECT_FALSE(config.differsFromPreset());
    config.headingHz = 1;
    EXPECT_FALSE(config.differsFromPreset());
    const auto differsAfter = [&](auto change) {
        config.apply(config.preset);
        change();
        return config.differsFromPreset();
    };
    EXPECT_TRUE(differsAfter([&] { config.tcpEnabled = false; }));
    EXPECT_TRUE(differsAfter([&] { config.udpEnabled = false; }));
    EXPECT_TRUE(differsAfter([&] { config.tcpPort = 1; }));
    EXPECT_TRUE(differsAfter([&] { config.udpPort = 1; }));
    EXPECT_TRUE(differsAfter([&] { config.gpsTalker = "GN"; }));
    EXPECT_FALSE(differsAfter([] {}));
}

}  // namespace
}  // namespace tidewright::gateway
