#pragma once

#include <cstdint>
#include <string>

#include "network/SharedBytes.h"

namespace tidewright::network {

/// The datagram side of the gateway. Nothing here ever reports a failure.
class DatagramSender {
public:
    virtual ~DatagramSender() = default;

    /// Stops, then opens a socket that sends to `broadcast`, an IPv4 address in dotted-decimal text
    /// (anything else counts as 255.255.255.255), on `port`. Returns when that is done.
    virtual void start(const std::string& broadcast, std::uint16_t port) = 0;

    /// Sends `sentence` as one datagram, and returns at once. Does nothing when stopped.
    virtual void send(SharedBytes sentence) = 0;

    /// Closes the socket after what was given to send() has left, and returns when that is done.
    virtual void stop() = 0;
};

}  // namespace tidewright::network
