#pragma once

#include <cstdint>
#include <string>

#include "network/DroppedSentences.h"
#include "network/SharedBytes.h"

namespace tidewright::network {

/// The datagram side of the gateway. Nothing here ever reports a failure.
class DatagramSender {
public:
    virtual ~DatagramSender() = default;

    /// Stops, then opens a socket that sends to `broadcast`, an IPv4 address in dotted-decimal text
    /// (anything else counts as 255.255.255.255), on `port`. Returns when that is done.
    virtual void start(const std::string& broadcast, std::uint16_t port) = 0;

    /// Sends `sentence` as one datagram, and returns at once. Does nothing when stopped. Where the
    /// network or the sender's own thread is too slow, whole sentences are dropped and counted.
    virtual void send(SharedBytes sentence) = 0;

    /// Closes the socket after what was given to send() has left, or soon in any case, and returns
    /// when that is done.
    virtual void stop() = 0;

    /// What was dropped so far.
    virtual DroppedSentences droppedSentences() const = 0;
};

}  // namespace tidewright::network
