#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "network/FriendlyNames.h"
#include "network/InterfaceAddress.h"
#include "network/LocalInterface.h"

namespace tidewright::network {

/// The addresses under which the local network can reach this machine, and the one to advertise.
struct LocalIP {
    /// Every private IPv4 address of this machine now, in the system's order; an interface with two
    /// has two entries. Empty when the system refuses to tell.
    static std::vector<LocalInterface> allInterfaces();

    /// The same, from `entries`. An entry without a mask counts as 255.255.255.0.
    static std::vector<LocalInterface> allInterfaces(const std::vector<InterfaceAddress>& entries,
                                                     const FriendlyNames& friendlyNames);

    /// The address of this machine to advertise now.
    static std::optional<LocalInterface> best();

    /// The first of `interfaces` whose display name says Wi-Fi (or WiFi, in capitals or not); else
    /// the first whose system name begins with "en"; else the first; nothing if there is none.
    static std::optional<LocalInterface> best(const std::vector<LocalInterface>& interfaces);

    /// Whether `ip` is on a network of one's own: 10.*, 172.16.* to 172.31.*, 192.168.*, or
    /// link-local, 169.254.*. Pieces between full stops that are not whole numbers (a sign is
    /// allowed) do not count; exactly four must remain.
    static bool isPrivate(std::string_view ip);

    /// The directed broadcast address of the network of `ip` and `mask`. Pieces that are not whole
    /// numbers from 0 to 255 do not count; unless four remain in each, 255.255.255.255.
    static std::string broadcastAddress(std::string_view ip, std::string_view mask);
};

}  // namespace tidewright::network
