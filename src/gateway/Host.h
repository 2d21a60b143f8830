#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "network/DatagramSender.h"
#include "network/LocalInterface.h"
#include "network/StreamServer.h"
#include "platform/LocalTime.h"
#include "platform/MainLoop.h"
#include "platform/RandomSource.h"

namespace tidewright::gateway {

/// Everything that the gateway asks of the world around it. The loops and `random` must outlive the
/// gateway.
struct Host {
    platform::MainLoop& loop;         ///< of the run, which may have a time of its own
    platform::MainLoop& machineLoop;  ///< in the machine's own time, for faults of connections
    platform::RandomSource& random;
    std::unique_ptr<network::StreamServer> tcp;
    std::unique_ptr<network::DatagramSender> udp;
    std::function<std::optional<network::LocalInterface>()> bestInterface;
    platform::UtcOffset utcOffset;                         ///< for the console's clock
    std::function<void(const std::string&)> setClipboard;  ///< replaces its content

    /// Takes each sentence as it leaves delivery, beside the transports; null: nobody does.
    std::function<void(const network::SharedBytes&)> record = {};

    /// The sentences come by GatewaySimulator::relay() instead of from the boat.
    bool replays = false;

    /// TCP listens on a port that the system picks at the first start, whatever the settings say.
    bool picksTcpPort = false;

    /// This machine: real sockets, interfaces and time zone.
    static Host machine(platform::MainLoop& loop, platform::MainLoop& machineLoop,
                        platform::RandomSource& random,
                        std::function<void(const std::string&)> setClipboard);
};

}  // namespace tidewright::gateway
