#pragma once

#include <cstdint>
#include <string>

namespace tidewright::network {

/// One client of a stream server.
struct ConnectedClient {
    std::uint64_t number = 0;  ///< from 1, never given twice in the life of the server
    std::string address;       ///< its host as shown, as in "192.168.1.20" or "fe80::1"

    bool operator==(const ConnectedClient&) const = default;
};

}  // namespace tidewright::network
