#include <arpa/inet.h>
#include <netinet/in.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "FuzzInput.h"
#include "network/ClientList.h"
#include "network/LocalIP.h"
#include "platform/Check.h"

namespace tidewright::fuzz {

using network::FriendlyNames;
using network::InterfaceAddress;
using network::LocalInterface;
using network::LocalIP;
using platform::check;

namespace {

/// What the system might say, one entry a line: flags, name, address, mask and friendly name, a tab
/// between them. The flags are any of u (up), l (loopback), 4 (IPv4), a and m (without an address
/// or a mask), f (with a friendly name).
struct Listing {
    std::vector<InterfaceAddress> entries;
    FriendlyNames friendlyNames;

    explicit Listing(FuzzInput input) {
        while (!input.isSpent()) add(FuzzInput(input.textUpTo('\n')));
    }

    void add(FuzzInput line) {
        const auto flags = line.textUpTo('\t');
        const auto has = [&flags](char flag) { return flags.find(flag) != std::string_view::npos; };
        InterfaceAddress entry{.name = std::string(line.textUpTo('\t')),
                               .up = has('u'),
                               .loopback = has('l'),
                               .isIPv4 = has('4')};
        const auto ip = line.textUpTo('\t');
        const auto mask = line.textUpTo('\t');
        if (!has('a')) entry.ip = ip;
        if (!has('m')) entry.mask = mask;
        if (has('f')) friendlyNames[entry.name] = line.rest();
        entries.push_back(entry);
    }
};

/// The C library's reading of a plain dotted address.
std::optional<std::uint32_t> addressIn(const std::string& text) {
    in_addr address{};
    if (inet_pton(AF_INET, text.c_str(), &address) != 1 || text.find('\0') != std::string::npos)
        return std::nullopt;
    return ntohl(address.s_addr);
}

bool isInPrivateNetwork(std::uint32_t address) {
    return address >> 24 == 10 || address >> 20 == (172 << 4 | 1) ||
           address >> 16 == (192 << 8 | 168) || address >> 16 == (169 << 8 | 254);
}

void checkAddress(const std::string& ip) {
    if (const auto address = addressIn(ip))
        check(LocalIP::isPrivate(ip) == isInPrivateNetwork(*address), "private or public");
    else
        check(!LocalIP::isPrivate(ip) || std::ranges::count(ip, '.') >= 3, "four numbers at least");
}

void checkBroadcast(const std::string& ip, const std::string& mask) {
    const std::string broadcast = LocalIP::broadcastAddress(ip, mask);
    const auto sent = addressIn(broadcast);
    check(sent.has_value(), "a broadcast address is an address");
    const auto address = addressIn(ip);
    const auto kept = addressIn(mask);
    if (address && kept) check(*sent == (*address | ~*kept), "the broadcast fills the host part");
    check(LocalIP::broadcastAddress(broadcast, mask) == broadcast, "a broadcast is its own");
}

bool isUsable(const InterfaceAddress& entry) {
    return entry.up && !entry.loopback && entry.isIPv4 && entry.ip && LocalIP::isPrivate(*entry.ip);
}

void checkInterfaces(const Listing& listing, const std::vector<LocalInterface>& interfaces) {
    auto next = interfaces.begin();
    for (const auto& entry : listing.entries) {
        if (!isUsable(entry)) continue;
        check(next != interfaces.end(), "every usable address is listed");
        const auto friendly = listing.friendlyNames.find(entry.name);
        const bool hasFriend = friendly != listing.friendlyNames.end();
        check(next->bsdName == entry.name && next->ip == entry.ip, "in the system's order");
        check(next->displayName == (hasFriend ? friendly->second : entry.name), "by its name");
        check(addressIn(next->broadcast).has_value(), "with an address to broadcast to");
        ++next;
    }
    check(next == interfaces.end(), "no other address is listed");
}

bool saysWiFi(const LocalInterface& interface) {
    const char* name = interface.displayName.c_str();
    return strcasestr(name, "wi-fi") != nullptr || strcasestr(name, "wifi") != nullptr;
}

void checkBest(const std::vector<LocalInterface>& interfaces) {
    const auto best = LocalIP::best(interfaces);
    check(best.has_value() != interfaces.empty(), "there is a best one among any");
    if (!best) return;
    check(std::ranges::find(interfaces, *best) != interfaces.end(), "the best is one of them");
    if (std::ranges::any_of(interfaces, saysWiFi))
        check(best->displayName.find('\0') != std::string::npos || saysWiFi(*best),
              "the best is the Wi-Fi where there is one");
}

void checkClients(const std::vector<std::string>& addresses) {
    std::vector<network::ConnectedClient> clients;
    for (const auto& address : addresses)
        clients.push_back({clients.size() + 1, network::describe(address)});
    network::sortClients(clients);
    check(clients.size() == addresses.size(), "every client is listed");
    check(std::ranges::is_sorted(clients, {}, &network::ConnectedClient::address),
          "clients are in order");
    for (const auto& client : clients)
        check(client.address.find('%') == std::string::npos, "no scope is shown");
}

}  // namespace

void tryInput(FuzzInput input) {
    const Listing listing(input);
    std::vector<std::string> names;
    for (const auto& entry : listing.entries) {
        const std::string ip = entry.ip.value_or("");
        checkAddress(ip);
        checkBroadcast(ip, entry.mask.value_or(""));
        names.push_back(ip);
    }
    const auto interfaces = LocalIP::allInterfaces(listing.entries, listing.friendlyNames);
    checkInterfaces(listing, interfaces);
    checkBest(interfaces);
    checkClients(names);
}

}  // namespace tidewright::fuzz
