#include "network/LocalIP.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tidewright::network {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

InterfaceAddress entry(const std::string& name, const std::string& ip,
                       const std::string& mask = "255.255.255.0") {
    return {.name = name, .up = true, .isIPv4 = true, .ip = ip, .mask = mask};
}

LocalInterface named(const std::string& bsdName, const std::string& displayName) {
    return {.bsdName = bsdName, .displayName = displayName, .ip = "", .broadcast = ""};
}

std::string bestName(const std::vector<LocalInterface>& interfaces) {
    return LocalIP::best(interfaces).value_or(named("none", "")).bsdName;
}

TEST(LocalIPTest, findsNothingAmongLoopbackAndPublicAddresses) {
    auto loopback = entry("lo0", "127.0.0.1");
    loopback.loopback = true;
    const auto interfaces =
        LocalIP::allInterfaces({loopback, entry("en0", "100.64.0.1"), entry("en1", "8.8.8.8")}, {});
    EXPECT_THAT(interfaces, IsEmpty());
    EXPECT_EQ(LocalIP::best(interfaces), std::nullopt);
}

TEST(LocalIPTest, knowsPrivateAddressesFromPublicOnes) {
    for (const auto* ip :
         {"10.0.0.1", "172.16.0.1", "172.31.255.1", "192.168.0.1", "169.254.3.4"}) {
        EXPECT_TRUE(LocalIP::isPrivate(ip)) << ip;
    }
    for (const auto* ip : {"172.15.0.4", "172.32.0.1", "100.64.0.1", "11.0.0.1", "192.169.1.1",
                           "169.255.1.1", "8.8.8.8", "0.0.0.0"}) {
        EXPECT_FALSE(LocalIP::isPrivate(ip)) << ip;
    }
}

TEST(LocalIPTest, countsOnlyTheWholeNumbersOfAnAddress) {
    EXPECT_TRUE(LocalIP::isPrivate("10..0.0.1"));
    EXPECT_TRUE(LocalIP::isPrivate("10.0.0.1.abc"));
    EXPECT_TRUE(LocalIP::isPrivate("+10.0.-1.300"));
    EXPECT_FALSE(LocalIP::isPrivate("10.0.0.abc"));
    EXPECT_FALSE(LocalIP::isPrivate("10.0.0.1 "));
    EXPECT_FALSE(LocalIP::isPrivate("10.0.0.+-1"));
    EXPECT_FALSE(LocalIP::isPrivate("10.0.0.+"));
    EXPECT_FALSE(LocalIP::isPrivate("10.0.0.99999999999999999999"));
    EXPECT_FALSE(LocalIP::isPrivate("10.0.0.1.2"));
    EXPECT_FALSE(LocalIP::isPrivate(""));
    EXPECT_FALSE(LocalIP::isPrivate("fe80::1"));
}

TEST(LocalIPTest, fillsTheHostPartOfTheBroadcastAddress) {
    EXPECT_EQ(LocalIP::broadcastAddress("192.168.1.37", "255.255.255.0"), "192.168.1.255");
    EXPECT_EQ(LocalIP::broadcastAddress("10.0.5.9", "255.255.0.0"), "10.0.255.255");
    EXPECT_EQ(LocalIP::broadcastAddress("192.168.1.137", "255.255.255.128"), "192.168.1.255");
    EXPECT_EQ(LocalIP::broadcastAddress("10.0.0.1", "255.255.255.255"), "10.0.0.1");
}

TEST(LocalIPTest, broadcastsToEveryoneForAnAddressItCannotRead) {
    EXPECT_EQ(LocalIP::broadcastAddress("10.0.0.1", ""), "255.255.255.255");
    EXPECT_EQ(LocalIP::broadcastAddress("10.0.0.1", "255.255.255"), "255.255.255.255");
    EXPECT_EQ(LocalIP::broadcastAddress("abc", "255.255.255.0"), "255.255.255.255");
}

TEST(LocalIPTest, countsOnlyTheOctetsOfAnAddress) {
    EXPECT_EQ(LocalIP::broadcastAddress("10.0.300.0.1", "255.255.255.0"), "10.0.0.255");
    EXPECT_EQ(LocalIP::broadcastAddress("10.0.-1.0.1", "255.255.255.0"), "10.0.0.255");
    EXPECT_EQ(LocalIP::broadcastAddress("192.168.001.037", "255.255.255.000"), "192.168.1.255");
}

TEST(LocalIPTest, takesAMissingMaskForTheUsualOne) {
    auto unmasked = entry("en0", "10.0.5.9");
    unmasked.mask = std::nullopt;
    EXPECT_EQ(LocalIP::allInterfaces({unmasked}, {}).at(0).broadcast, "10.0.5.255");
}

TEST(LocalIPTest, describesEveryUsableAddressInTheSystemsOrder) {
    const auto interfaces =
        LocalIP::allInterfaces({entry("en5", "10.0.5.9", "255.255.0.0"),
                                entry("en0", "192.168.1.37"), entry("en0", "192.168.2.37")},
                               {{"en0", "Wi-Fi"}});
    EXPECT_THAT(interfaces,
                ElementsAre(LocalInterface{"en5", "en5", "10.0.5.9", "10.0.255.255"},
                            LocalInterface{"en0", "Wi-Fi", "192.168.1.37", "192.168.1.255"},
                            LocalInterface{"en0", "Wi-Fi", "192.168.2.37", "192.168.2.255"}));
}

TEST(LocalIPTest, skipsWhatIsDownOrOtherThanIPv4OrWithoutAText) {
    auto down = entry("en9", "10.1.1.1");
    down.up = false;
    const InterfaceAddress overIPv6{.name = "en8", .up = true, .ip = "fe80::1"};
    const InterfaceAddress textless{.name = "en7", .up = true, .isIPv4 = true};
    EXPECT_THAT(LocalIP::allInterfaces({down, overIPv6, textless}, {}), IsEmpty());
}

TEST(LocalIPTest, prefersWiFiToAnEthernetListedBefore) {
    EXPECT_EQ(bestName({named("en5", "Ethernet"), named("en0", "Wi-Fi")}), "en0");
}

TEST(LocalIPTest, prefersAnEnInterfaceToABridgeListedBefore) {
    EXPECT_EQ(bestName({named("bridge100", "Thunderbolt Bridge"), named("en5", "en5")}), "en5");
}

TEST(LocalIPTest, recognizesWiFiWithoutHyphenAndInAnyCase) {
    EXPECT_EQ(bestName({named("en5", "en5"), named("usb0", "WiFi USB")}), "usb0");
    EXPECT_EQ(bestName({named("en5", "en5"), named("usb0", "my WI-FI")}), "usb0");
}

TEST(LocalIPTest, doesNotTakeWLANForWiFi) {
    EXPECT_EQ(bestName({named("wl0", "WLAN"), named("en0", "Ethernet")}), "en0");
}

TEST(LocalIPTest, settlesForTheFirstInterface) {
    EXPECT_EQ(bestName({named("ENx", "ENx"), named("bar0", "bar0")}), "ENx");
}

TEST(LocalIPTest, offersOnlyPrivateAddressesOfThisMachine) {
    const auto interfaces = LocalIP::allInterfaces();
    for (const auto& interface : interfaces) EXPECT_TRUE(LocalIP::isPrivate(interface.ip));
    EXPECT_EQ(LocalIP::best(), LocalIP::best(interfaces));
}

}  // namespace
}  // namespace tidewright::network
