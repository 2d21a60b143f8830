#pragma once

#include <memory>

#include "network/DatagramSender.h"

namespace tidewright::network {

/// Sends each sentence as one UDP datagram from a port that the system picks. Any thread may call
/// it. A datagram that cannot leave at once is lost, and the next one is tried all the same.
class UDPBroadcaster final : public DatagramSender {
public:
    /// Where start() sends to: `broadcast` itself if it is an IPv4 address in dotted-decimal text,
    /// else 255.255.255.255.
    static std::string destination(const std::string& broadcast);

    UDPBroadcaster();
    ~UDPBroadcaster() override;

    void start(const std::string& broadcast, std::uint16_t port) override;
    void send(SharedBytes sentence) override;
    void stop() override;

private:
    struct Core;
    std::unique_ptr<Core> core_;
};

}  // namespace tidewright::network
