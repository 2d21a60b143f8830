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

/// Everything that the gateway asks of the world around it. `loop` and `random` must outlive the
/// gateway.
struct Host {
    platform::MainLoop& loop;
    platform::RandomSource& random;
    std::unique_ptr<network::StreamServer> tcp;
    std::unique_ptr<network::DatagramSender> udp;
    std::function<std::optional<network::LocalInterface>()> bestInterface;
    platform::UtcOffset utcOffset;                         ///< for the console's clock
    std::function<void(const std::string&)> setClipboard;  ///< replaces its content

    /// This machine: real sockets, interfaces and time zone.
    static Host machine(platform::MainLoop& loop, platform::RandomSource& random,
                        std::function<void(const std::string&)> setClipboard);
};

}  // namespace tidewright::gateway
