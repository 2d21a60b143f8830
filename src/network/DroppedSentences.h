#pragma once

#include <cstdint>

namespace tidewright::network {

/// Sentences that a transport dropped, whole, since it was made, by what was too slow for them.
struct DroppedSentences {
    std::uint64_t thread = 0;  ///< the transport's own thread
    std::uint64_t client = 0;  ///< a client of a stream server, each counted for itself
    std::uint64_t socket = 0;  ///< the network under a datagram socket

    bool operator==(const DroppedSentences&) const = default;
};

}  // namespace tidewright::network
