#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>

#include "gateway/Host.h"
#include "support/RecordingDatagramSender.h"
#include "support/RecordingStreamServer.h"

namespace tidewright {

/// The world around a gateway under test: transports that record, one Wi-Fi interface, a clipboard
/// to look at. Must outlive the gateway that its host() goes to.
struct PretendHost {
    network::RecordingStreamServer* tcp = nullptr;    ///< owned by the gateway
    network::RecordingDatagramSender* udp = nullptr;  ///< owned by the gateway
    std::optional<network::LocalInterface> interface =
        network::LocalInterface{"en0", "Wi-Fi", "192.168.1.37", "192.168.1.255"};
    std::chrono::seconds utcOffset{0};
    std::string clipboard;

    /// For one gateway.
    gateway::Host host(platform::MainLoop& loop, platform::RandomSource& random) {
        return host(loop, loop, random);
    }

    /// The same, where the run has a clock of its own.
    gateway::Host host(platform::MainLoop& loop, platform::MainLoop& machineLoop,
                       platform::RandomSource& random) {
        auto stream = std::make_unique<network::RecordingStreamServer>();
        auto datagrams = std::make_unique<network::RecordingDatagramSender>();
        tcp = stream.get();
        udp = datagrams.get();
        return {.loop = loop,
                .machineLoop = machineLoop,
                .random = random,
                .tcp = std::move(stream),
                .udp = std::move(datagrams),
                .bestInterface = [this] { return interface; },
                .utcOffset = [this](platform::WallTime) { return utcOffset; },
                .setClipboard = [this](const std::string& text) { clipboard = text; }};
    }
};

}  // namespace tidewright
