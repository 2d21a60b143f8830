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

}  // namespace
}  // namespace tidewright::network
