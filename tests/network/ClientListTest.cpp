#include "network/ClientList.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tidewright::network {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ClientListTest, sortsAddressesAsText) {
    EXPECT_THAT(clientList({"192.168.1.2", "10.0.0.9", "192.168.1.10"}),
                ElementsAre("10.0.0.9", "192.168.1.10", "192.168.1.2"));
}

TEST(ClientListTest, listsTwoClientsOfOneHostTwice) {
    EXPECT_THAT(clientList({"192.168.1.20", "192.168.1.20"}),
                ElementsAre("192.168.1.20", "192.168.1.20"));
}

TEST(ClientListTest, leavesOutTheScopeOfAnIPv6Address) {
    EXPECT_THAT(clientList({"fe80::1%en0"}), ElementsAre("fe80::1"));
}

TEST(ClientListTest, sortsWhatIsShownRatherThanWhatIsHidden) {
    EXPECT_THAT(clientList({"fe80::2%a", "fe80::1%b", "::ffff:9.0.0.1", "10.0.0.1"}),
                ElementsAre("10.0.0.1", "9.0.0.1", "fe80::1", "fe80::2"));
}

TEST(ClientListTest, showsMappedIPv4AddressesPlainly) {
    EXPECT_EQ(describe("::ffff:192.168.1.20"), "192.168.1.20");
}

TEST(ClientListTest, leavesOtherIPv6AddressesAlone) {
    EXPECT_EQ(describe("::ffff:1"), "::ffff:1");
    EXPECT_EQ(describe("2001:db8::1"), "2001:db8::1");
}

TEST(ClientListTest, isEmptyWithoutClients) {
    EXPECT_THAT(clientList({}), IsEmpty());
}

}  // namespace
}  // namespace tidewright::network
