#include "network/InterfaceAddress.h"

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>

#include <array>
#include <cstring>
#include <memory>

namespace tidewright::network {

namespace {

bool isIPv4(const sockaddr* address) {
    return address != nullptr && address->sa_family == AF_INET;
}

/// An IPv4 address as text. The family is not looked at: some systems leave it out of netmasks.
std::optional<std::string> ipv4Text(const sockaddr* address) {
    if (address == nullptr) return std::nullopt;
    sockaddr_in ipv4{};
    std::memcpy(&ipv4, address, sizeof ipv4);
    std::array<char, INET_ADDRSTRLEN> text{};
    if (inet_ntop(AF_INET, &ipv4.sin_addr, text.data(), text.size()) == nullptr) {
        return std::nullopt;
    }
    return text.data();
}

InterfaceAddress describe(const ifaddrs& entry) {
    InterfaceAddress address{.name = entry.ifa_name,
                             .up = (entry.ifa_flags & IFF_UP) != 0,
                             .loopback = (entry.ifa_flags & IFF_LOOPBACK) != 0,
                             .isIPv4 = isIPv4(entry.ifa_addr)};
    if (address.isIPv4) {
        address.ip = ipv4Text(entry.ifa_addr);
        address.mask = ipv4Text(entry.ifa_netmask);
    }
    return address;
}

}  // namespace

std::vector<InterfaceAddress> interfaceAddresses() {
    ifaddrs* first = nullptr;
    if (getifaddrs(&first) != 0) return {};
    const std::unique_ptr<ifaddrs, decltype(&freeifaddrs)> list(first, &freeifaddrs);
    std::vector<InterfaceAddress> addresses;
    for (const ifaddrs* entry = first; entry != nullptr; entry = entry->ifa_next) {
        addresses.push_back(describe(*entry));
    }
    return addresses;
}

bool isIPv4Address(const std::string& text) {
    in_addr address{};
    return inet_pton(AF_INET, text.c_str(), &address) == 1;
}

}  // namespace tidewright::network
