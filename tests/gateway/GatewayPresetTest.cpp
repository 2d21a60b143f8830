#include "gateway/GatewayPreset.h"

#include <gtest/gtest.h>

#include <set>

namespace tidewright::gateway {
namespace {

TEST(GatewayPresetTest, hasAnIdentifierOfItsOwn) {
    std::set<std::string_view> ids;
    for (const GatewayPreset& each : GatewayPreset::all) ids.insert(each.id);
    EXPECT_EQ(ids.size(), GatewayPreset::all.size());
}

TEST(GatewayPresetTest, servesBothTransportsWhicheverItIs) {
    for (const GatewayPreset& each : GatewayPreset::all)
        EXPECT_TRUE(each.tcpEnabled && each.udpEnabled) << each.id;
}

TEST(GatewayPresetTest, differsWhenAnyFieldDoes) {
    GatewayPreset other = GatewayPreset::all.front();
    EXPECT_EQ(other, GatewayPreset::all.front());
    other.prefersUDP = true;
    EXPECT_NE(other, GatewayPreset::all.front());
}

}  // namespace
}  // namespace tidewright::gateway
