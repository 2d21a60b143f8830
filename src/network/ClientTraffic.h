#pragma once

#include <cstdint>

namespace tidewright::network {

/// What one client of a stream server was sent since it came.
struct ClientTraffic {
    std::uint64_t number = 0;           ///< as in ConnectedClient
    std::uint64_t sentBytes = 0;        ///< handed to the system for it, acknowledged or not
    std::uint64_t missedSentences = 0;  ///< that it was too slow for

    bool operator==(const ClientTraffic&) const = default;
};

}  // namespace tidewright::network
