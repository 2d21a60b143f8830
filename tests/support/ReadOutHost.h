#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "gateway/Host.h"

namespace tidewright {

/// A stream server without clients that hands each sentence to a reader.
class ReadOutServer final : public network::StreamServer {
public:
    using Reader = std::function<void(const std::string& sentence)>;

    explicit ReadOutServer(Reader reader) : reader_(std::move(reader)) {}

    std::optional<network::StartFailure> start(std::uint16_t) override { return std::nullopt; }
    std::optional<std::uint16_t> startOnFreePort() override { return 1; }
    void stop() override {}
    void broadcast(network::SharedBytes sentence) override { reader_(*sentence); }
    void limitClients(std::int64_t) override {}
    void dropAllClients() override {}
    void drop(std::uint64_t) override {}
    void askForTraffic() override {}
    std::uint64_t acceptedClients() const override { return 0; }
    network::DroppedSentences droppedSentences() const override { return {}; }

private:
    Reader reader_;
};

/// A sender whose datagrams reach nobody.
struct SilentSender final : network::DatagramSender {
    void start(const std::string&, std::uint16_t) override {}
    void send(network::SharedBytes) override {}
    void stop() override {}
    network::DroppedSentences droppedSentences() const override { return {}; }
};

/// For one gateway without a network, whose stream goes to `reader`. At home in UTC.
inline gateway::Host readOutHost(platform::MainLoop& loop, platform::RandomSource& random,
                                 ReadOutServer::Reader reader) {
    return {.loop = loop,
            .machineLoop = loop,
            .random = random,
            .tcp = std::make_unique<ReadOutServer>(std::move(reader)),
            .udp = std::make_unique<SilentSender>(),
            .bestInterface = [] { return std::nullopt; },
            .utcOffset = [](platform::WallTime) { return std::chrono::seconds(0); },
            .setClipboard = {}};
}

}  // namespace tidewright
