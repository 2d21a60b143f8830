#include "network/InterfaceAddress.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tidewright::network {
namespace {

TEST(InterfaceAddressTest, listsTheLoopbackOfThisMachine) {
    const auto entries = interfaceAddresses();
    const auto loopback = std::find_if(entries.begin(), entries.end(), [](const auto& entry) {
        return entry.isIPv4 && entry.ip == "127.0.0.1";
    });
    ASSERT_NE(loopback, entries.end());
    EXPECT_TRUE(loopback->up);
    EXPECT_TRUE(loopback->loopback);
    EXPECT_EQ(loopback->mask, "255.0.0.0");
}

TEST(InterfaceAddressTest, knowsAnIPv4AddressFromOtherTexts) {
    for (const char* text : {"192.168.1.20", "255.255.255.255", "239.1.2.3", "0.0.0.0"})
        EXPECT_TRUE(isIPv4Address(text)) << text;
    for (const char* text : {"", "192.168.1", "192.168.1.256", "192.168.1.20 ", "::1", "host",
                             "192.168.1.20:2000", "1.2.3.4.5"})
        EXPECT_FALSE(isIPv4Address(text)) << text;
}

}  // namespace
}  // namespace tidewright::network
