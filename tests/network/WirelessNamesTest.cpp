#include "network/WirelessNames.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace tidewright::network {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

struct WirelessNamesTest : testing::Test {
    const std::filesystem::path root =
        std::filesystem::path(testing::TempDir()) / ("interfaces-" + std::to_string(getpid()));

    void add(const std::string& entry) const { create_directories(root / entry); }
    void TearDown() override { remove_all(root); }
};

TEST_F(WirelessNamesTest, namesTheInterfacesThatTheKernelMarksAsWireless) {
    add("eth0/device");
    add("wlan0/wireless");
    add("wlp2s0/phy80211");
    EXPECT_THAT(wirelessNames(root), ElementsAre(Pair("wlan0", "Wi-Fi"), Pair("wlp2s0", "Wi-Fi")));
}

TEST_F(WirelessNamesTest, knowsNoNamesWhereTheKernelTellsNothing) {
    EXPECT_THAT(wirelessNames(root), IsEmpty());
}

}  // namespace
}  // namespace tidewright::network
