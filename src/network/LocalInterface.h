#pragma once

#include <string>

namespace tidewright::network {

/// One IPv4 address of this machine on a private network.
struct LocalInterface {
    std::string bsdName;      ///< the system's name, as in "en0" or "wlan0"
    std::string displayName;  ///< what people call it, as in "Wi-Fi"; else the system's name
    std::string ip;           ///< dotted decimal
    std::string broadcast;    ///< the network's broadcast address, dotted decimal

    bool operator==(const LocalInterface&) const = default;
};

}  // namespace tidewright::network
