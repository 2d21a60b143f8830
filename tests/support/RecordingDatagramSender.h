#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "network/DatagramSender.h"

namespace tidewright::network {

/// A datagram sender without a socket that keeps what it was given.
class RecordingDatagramSender final : public DatagramSender {
public:
    struct Destination {
        std::string broadcast;
        std::uint16_t port = 0;

        bool operator==(const Destination&) const = default;
    };

    std::vector<Destination> starts;     ///< one for every start()
    int stops = 0;                       ///< calls of stop() by the owner
    std::vector<std::string> sentences;  ///< one for every send(), in order
    DroppedSentences drops;              ///< the answer of droppedSentences()
    bool running = false;                ///< between a start() and the next stop()

    void start(const std::string& broadcast, std::uint16_t port) override {
        starts.push_back({.broadcast = broadcast, .port = port});
        running = true;
    }

    void send(SharedBytes sentence) override { sentences.push_back(*sentence); }

    void stop() override {
        ++stops;
        running = false;
    }

    DroppedSentences droppedSentences() const override { return drops; }

    /// The sentences since the last call, which they leave.
    std::vector<std::string> takeSentences() { return std::exchange(sentences, {}); }
};

}  // namespace tidewright::network
