#pragma once

#include <sys/socket.h>
#include <unistd.h>

#include <cstdint>
#include <utility>

namespace tidewright::soak {

/// A bare TCP connection to a port of this machine. Operations on it give up after ten seconds.
class LoopbackSocket {
public:
    /// Connects as soon as somebody listens; fails the program where nobody does for ten seconds.
    /// `receiveBufferBytes` is small for a client that shall fill up; 0 for the system's choice.
    explicit LoopbackSocket(std::uint16_t port, int receiveBufferBytes = 0);

    LoopbackSocket(LoopbackSocket&& other) noexcept : socket_(std::exchange(other.socket_, -1)) {}
    LoopbackSocket& operator=(LoopbackSocket&&) = delete;
    ~LoopbackSocket() {
        if (socket_ >= 0) close(socket_);
    }

    int native() const { return socket_; }

private:
    int socket_;
};

}  // namespace tidewright::soak
