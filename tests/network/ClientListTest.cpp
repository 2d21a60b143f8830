#include "network/ClientList.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/NumberedClients.h"

namespace tidewright::network {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Clients from these addresses, numbered from 1, as they are listed.
std::vector<ConnectedClient> sorted(const std::vector<std::string>& addresses) {
    auto clients = numberedClients(addresses);
    sortClients(clients);
    return clients;
}

TEST(ClientListTest, sortsAddressesAsText) {
    EXPECT_THAT(sorted({"192.168.1.2", "10.0.0.9", "192.168.1.10"}),
                ElementsAre(ConnectedClient{2, "10.0.0.9"}, ConnectedClient{3, "192.168.1.10"},
                            ConnectedClient{1, "192.168.1.2"}));
}

TEST(ClientListTest, sortsClientsOfOneHostByNumber) {
    std::vector<ConnectedClient> clients{{10, "10.0.0.9"}, {9, "10.0.0.9"}, {11, "10.0.0.1"}};
    sortClients(clients);
    EXPECT_THAT(clients,
                ElementsAre(ConnectedClient{11, "10.0.0.1"}, ConnectedClient{9, "10.0.0.9"},
                            ConnectedClient{10, "10.0.0.9"}));
}

TEST(ClientListTest, isEmptyWithoutClients) {
    EXPECT_THAT(sorted({}), IsEmpty());
}

TEST(ClientListTest, leavesOutTheScopeOfAnIPv6Address) {
    EXPECT_EQ(describe("fe80::1%en0"), "fe80::1");
}

TEST(ClientListTest, showsMappedIPv4AddressesPlainly) {
    EXPECT_EQ(describe("::ffff:192.168.1.20"), "192.168.1.20");
}

TEST(ClientListTest, leavesOtherIPv6AddressesAlone) {
    EXPECT_EQ(describe("::ffff:1"), "::ffff:1");
    EXPECT_EQ(describe("2001:db8::1"), "2001:db8::1");
}

}  // namespace
}  // namespace tidewright::network
