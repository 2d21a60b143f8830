#include "network/Chunk.h"

#include <unistd.h>

#include <array>
#include <cerrno>

namespace tidewright::network {

Chunk readChunk(int descriptor) {
    std::array<char, Chunk::maximumBytes> buffer;
    ssize_t size = -1;
    do size = ::read(descriptor, buffer.data(), buffer.size());
    while (size < 0 && errno == EINTR);
    if (size < 0) return {.bytes = {}, .isLater = errno == EAGAIN || errno == EWOULDBLOCK};
    return {.bytes = std::string(buffer.data(), static_cast<std::size_t>(size))};
}

}  // namespace tidewright::network
