#pragma once

#include <memory>

#include "network/DatagramSender.h"

namespace tidewright::network {

/// Sends each sentence as one UDP datagram from a port that the system picks. Any thread may call
/// it.
///
/// Datagrams wait for a socket that is full, 1 MiB of them at most; beyond it the oldest are
/// dropped and counted, as is a sentence that no datagram can hold (65,507 bytes). One that cannot
/// be sent at all, where the network is gone for instance, is lost, and the next one is tried all
/// the same. stop() waits 0.2 s at most for what waits to leave, and drops and counts the rest.
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
    DroppedSentences droppedSentences() const override;

private:
    struct Core;
    std::unique_ptr<Core> core_;
};

}  // namespace tidewright::network
