#pragma once

#include <utility>

#include "Journal.h"
#include "network/TCPServer.h"

namespace tidewright::soak {

/// The real server, with a record of what it was given.
class JournalingServer final : public network::StreamServer {
public:
    /// Both arguments must outlive this.
    JournalingServer(platform::MainLoop& loop, Journal& journal)
        : server_(loop), journal_(journal) {
        server_.onClientsChanged = [this](const auto& clients) { onClientsChanged(clients); };
        server_.onTraffic = [this](const auto& clients) { onTraffic(clients); };
        server_.onFailed = [this](const auto& description) { onFailed(description); };
    }

    std::optional<network::StartFailure> start(std::uint16_t port) override {
        return server_.start(port);
    }
    std::optional<std::uint16_t> startOnFreePort() override { return server_.startOnFreePort(); }
    void stop() override { server_.stop(); }
    void limitClients(std::int64_t limit) override { server_.limitClients(limit); }
    void dropAllClients() override { server_.dropAllClients(); }
    void drop(std::uint64_t number) override { server_.drop(number); }
    void askForTraffic() override { server_.askForTraffic(); }
    std::uint64_t acceptedClients() const override { return server_.acceptedClients(); }
    network::DroppedSentences droppedSentences() const override {
        return server_.droppedSentences();
    }

    void broadcast(network::SharedBytes sentence) override {
        journal_.append(*sentence);
        server_.broadcast(std::move(sentence));
    }

private:
    network::TCPServer server_;
    Journal& journal_;
};

}  // namespace tidewright::soak
