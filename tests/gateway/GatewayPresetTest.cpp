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

TEST(GatewayPresetTest, imitatesTheGatewaysThatItNames) {
    using Presets = std::array<GatewayPreset, 6>;
    EXPECT_EQ(GatewayPreset::all,
              (Presets{{
                  {"digital-yacht", "Digital Yacht", "iKonvert / WLN10", true, true, 2000, 2000,
                   "GP", false},
                  {"miniplex", "MiniPlex", "3Wi", true, true, 10110, 10110, "GP", false},
                  {"nke", "NKE", "Wifi Box", true, true, 50000, 50000, "II", false},
                  {"yacht-devices", "Yacht Devices", "YDWG-02", true, true, 1456, 1456, "GN", true},
                  {"generic", "Generic", "NMEA", true, true, 10110, 10110, "GP", false},
                  {"custom", "Custom", "", true, true, 2000, 2000, "GP", false},
              }}));
}

TEST(GatewayPresetTest, differsWhenAnyFieldDoes) {
    GatewayPreset other = GatewayPreset::all.front();
    EXPECT_EQ(other, GatewayPreset::all.front());
    other.prefersUDP = true;
    EXPECT_NE(other, GatewayPreset::all.front());
}

}  // namespace
}  // namespace tidewright::gateway
