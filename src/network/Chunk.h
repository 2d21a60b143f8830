#pragma once

#include <cstddef>
#include <string>

namespace tidewright::network {

/// What one reading of a file or a pipe gave.
struct Chunk {
    static constexpr std::size_t maximumBytes = 64 * 1024;

    std::string bytes;     ///< empty at the end, which an error counts as
    bool isLater = false;  ///< nothing is there yet, and the descriptor is one that does not block
};

/// Reads what is there from an open descriptor.
Chunk readChunk(int descriptor);

}  // namespace tidewright::network
