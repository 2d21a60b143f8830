#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace tidewright::gateway {

/// The network manners of a commercial Wi-Fi gateway, to be imitated in one step.
struct GatewayPreset {
    std::string_view id;            ///< unique, lower case
    std::string_view manufacturer;  ///< as displayed
    std::string_view model;         ///< as displayed; may be empty
    bool tcpEnabled = true;
    bool udpEnabled = true;
    std::uint16_t tcpPort = 0;
    std::uint16_t udpPort = 0;
    std::string_view gpsTalker;  ///< two letters before RMC, GGA and VTG
    bool prefersUDP = false;     ///< its usual mode is broadcast; for information only

    bool operator==(const GatewayPreset&) const = default;

    /// The built-in ones, the default first.
    static const std::array<GatewayPreset, 6> all;
};

}  // namespace tidewright::gateway
