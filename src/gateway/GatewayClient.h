#pragma once

#include <cstdint>
#include <string>

#include "platform/MainLoop.h"

namespace tidewright::gateway {

/// One TCP client of the gateway, as a user is shown it.
struct GatewayClient {
    std::uint64_t number = 0;           ///< from 1, never given twice in the life of the gateway
    std::string address;                ///< its host, as in "192.168.1.20"
    platform::WallTime since;           ///< when it was first listed
    std::uint64_t sentBytes = 0;        ///< as of the last second
    std::uint64_t missedSentences = 0;  ///< that it was too slow for, as of the last second

    bool operator==(const GatewayClient&) const = default;
};

}  // namespace tidewright::gateway
