#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "gateway/GatewayPreset.h"
#include "platform/Observable.h"

namespace tidewright::gateway {

/// Where datagrams go: to the broadcast address of the network that the machine is on at the start;
/// or on from there, to that of every network it moves to.
inline constexpr std::string_view udpAutomatic = "auto";
inline constexpr std::string_view udpFollowsNetwork = "follow";

/// What the gateway sends, how often and where. Nothing is checked here: a rate of 0 or below
/// leaves its family out, port 0 fails at the start. The talker, the limit and the TAG block act at
/// once, the number of vessels when they are made anew, everything else at the next start.
struct SimulationConfig : platform::Observable {
    platform::Published<GatewayPreset> preset{*this, GatewayPreset::all.front()};  ///< last applied
    platform::Published<bool> tcpEnabled{*this, true};
    platform::Published<bool> udpEnabled{*this, true};
    platform::Published<std::uint16_t> tcpPort{*this, 2000};
    platform::Published<std::uint16_t> udpPort{*this, 2000};
    platform::Published<std::string> gpsTalker{*this, "GP"};  ///< of RMC, GGA and VTG

    /// udpAutomatic, udpFollowsNetwork, or an IPv4 address: of one host, of a network, of a group.
    platform::Published<std::string> udpDestination{*this, std::string(udpAutomatic)};
    platform::Published<std::int64_t> tcpClientLimit{*this, 0};  ///< <= 0: none
    platform::Published<bool> tagBlock{*this, false};  ///< before each sentence: source and time

    platform::Published<bool> gps{*this, true};  ///< position, and course over ground
    platform::Published<bool> heading{*this, true};
    platform::Published<bool> boatSpeed{*this, true};
    platform::Published<bool> wind{*this, true};
    platform::Published<bool> depth{*this, true};
    platform::Published<bool> temperature{*this, true};
    platform::Published<bool> ais{*this, true};
    platform::Published<std::int64_t> aisTargetCount{*this, 5};

    platform::Published<double> positionHz{*this, 1.0};     ///< RMC, GGA
    platform::Published<double> courseSpeedHz{*this, 1.0};  ///< VTG
    platform::Published<double> headingHz{*this, 5.0};      ///< HDT, HDG
    platform::Published<double> boatSpeedHz{*this, 2.0};    ///< VHW
    platform::Published<double> windHz{*this, 2.0};         ///< MWV twice
    platform::Published<double> depthHz{*this, 1.0};        ///< DBT, DPT
    platform::Published<double> temperatureHz{*this, 0.2};  ///< MTW
    platform::Published<double> aisHz{*this, 1.0};          ///< AIS position reports

    /// Takes over the preset's outputs, ports and talker; leaves sentences, rates and AIS alone.
    void apply(const GatewayPreset& chosen);

    /// Whether an output, a port or the talker is no longer what the last preset brought.
    bool differsFromPreset() const;
};

}  // namespace tidewright::gateway
