#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "network/StreamServer.h"

namespace tidewright::network {

/// A stream server without sockets that keeps what it was given. What a real one would report, a
/// test reports itself, through its callbacks: nothing is called from here.
class RecordingStreamServer final : public StreamServer {
public:
    std::optional<StartFailure> startFailure;        ///< the answer of the next starts
    std::optional<std::uint16_t> freePort = 50'000;  ///< the answer of startOnFreePort()
    std::vector<std::uint16_t>
        startedPorts;        ///< one for every start, failed ones included; 0: a free one
    int stops = 0;           ///< calls of stop() by the owner
    std::int64_t limit = 0;  ///< as last told by limitClients()
    int dropAllClientsCalls = 0;
    std::vector<std::uint64_t> dropped;  ///< one for every drop(), in order
    int askForTrafficCalls = 0;
    std::vector<std::string> sentences;  ///< one for every broadcast(), in order
    std::uint64_t accepted = 0;          ///< the answer of acceptedClients()
    DroppedSentences drops;              ///< the answer of droppedSentences()
    bool running = false;                ///< between a start() that succeeded and the next stop()

    std::optional<StartFailure> start(std::uint16_t port) override {
        startedPorts.push_back(port);
        running = !startFailure;
        return startFailure;
    }

    std::optional<std::uint16_t> startOnFreePort() override {
        startedPorts.push_back(0);
        running = freePort.has_value();
        return freePort;
    }

    void stop() override {
        ++stops;
        running = false;
    }

    void broadcast(SharedBytes sentence) override { sentences.push_back(*sentence); }

    void limitClients(std::int64_t limit) override { this->limit = limit; }

    void dropAllClients() override { ++dropAllClientsCalls; }

    void drop(std::uint64_t number) override { dropped.push_back(number); }

    void askForTraffic() override { ++askForTrafficCalls; }

    std::uint64_t acceptedClients() const override { return accepted; }

    DroppedSentences droppedSentences() const override { return drops; }

    /// The sentences since the last call, which they leave.
    std::vector<std::string> takeSentences() { return std::exchange(sentences, {}); }
};

}  // namespace tidewright::network
