#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <string_view>
#include <vector>

#include "gateway/Assembly.h"
#include "platform/VirtualMainLoop.h"
#include "support/NumberedClients.h"
#include "support/PretendHost.h"
#include "support/ScriptedRandom.h"

namespace tidewright::gateway {

/// A whole gateway in virtual time, from 12:00 on a summer's day, with transports that record.
struct GatewayFixture : testing::Test {
    static constexpr platform::WallTime noon =
        std::chrono::sys_days{std::chrono::June / 1 / 2026} + std::chrono::hours(12);

    platform::VirtualMainLoop loop{noon};
    ScriptedRandom random;
    PretendHost host;
    Assembly assembly{host.host(loop, random)};
    simulation::BoatSimulationEngine& engine = assembly.engine;
    SimulationConfig& config = assembly.config;
    faults::FailureInjection& faults = assembly.faults;
    GatewaySimulator& gateway = assembly.gateway;

    /// What TCP clients receive while `span` passes.
    std::vector<std::string> sentencesDuring(std::chrono::milliseconds span) {
        host.tcp->takeSentences();
        loop.advance(span);
        return host.tcp->takeSentences();
    }

    /// Reports these clients, numbered from 1, as connected.
    void connect(const std::vector<std::string>& addresses) const {
        host.tcp->onClientsChanged(network::numberedClients(addresses));
    }

    /// The texts of the console's system lines.
    std::vector<std::string> systemLines() const {
        std::vector<std::string> texts;
        for (const ConsoleLine& line : gateway.consoleLines())
            if (line.transport == "SYS") texts.push_back(line.text);
        return texts;
    }
};

/// The talker and name of each sentence, as in "GPRMC".
inline std::vector<std::string> addresses(const std::vector<std::string>& sentences) {
    std::vector<std::string> names;
    for (const std::string& each : sentences) names.push_back(each.substr(1, 5));
    return names;
}

inline auto countOf(const std::vector<std::string>& sentences, std::string_view address) {
    return std::ranges::count(addresses(sentences), address);
}

}  // namespace tidewright::gateway
