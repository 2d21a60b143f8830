#include <fmt/format.h>

#include <chrono>
#include <cstdio>
#include <memory>
#include <string>

#include "app/CommandLine.h"
#include "gateway/GatewaySimulator.h"
#include "platform/VirtualMainLoop.h"
#include "support/SeededRandom.h"

using namespace tidewright;
using app::Arguments;
using app::CommandLine::contains;
using app::CommandLine::integer;
using app::CommandLine::value;

namespace {

constexpr platform::WallTime noon =
    std::chrono::sys_days{std::chrono::June / 1 / 2026} + std::chrono::hours(12);

/// Writes each sentence on standard output, after the time if wanted.
class Printer final : public network::StreamServer {
public:
    Printer(const platform::MainLoop& loop, bool withTimes) : loop_(loop), withTimes_(withTimes) {}

    std::optional<network::StartFailure> start(std::uint16_t) override { return std::nullopt; }
    void stop() override {}
    void dropAllClients() override {}

    void broadcast(network::SharedBytes sentence) override {
        const std::chrono::duration<double> time = loop_.now().time_since_epoch();
        const std::string text =
            withTimes_ ? fmt::format("{:.2f} {}", time.count(), *sentence) : *sentence;
        std::fwrite(text.data(), 1, text.size(), stdout);
    }

private:
    const platform::MainLoop& loop_;
    bool withTimes_;
};

struct SilentSender final : network::DatagramSender {
    void start(const std::string&, std::uint16_t) override {}
    void send(network::SharedBytes) override {}
    void stop() override {}
};

gateway::Host hostOf(platform::MainLoop& loop, platform::RandomSource& random, bool withTimes) {
    return {.loop = loop,
            .random = random,
            .tcp = std::make_unique<Printer>(loop, withTimes),
            .udp = std::make_unique<SilentSender>(),
            .bestInterface = [] { return std::nullopt; },
            .utcOffset = [](platform::WallTime) { return std::chrono::seconds(0); },
            .setClipboard = {}};
}

std::int64_t number(const char* option, const Arguments& arguments, std::int64_t otherwise) {
    return integer(value(option, arguments).value_or("")).value_or(otherwise);
}

void applyMode(const Arguments& arguments, simulation::BoatSimulationEngine& engine) {
    const std::string name = value("--mode", arguments).value_or("sailing");
    if (const auto mode = simulation::controlMode(name == "sailing" ? "auto" : name))
        engine.mode = *mode;
    simulation::AnchorSettings anchor;
    anchor.chainTaut = !contains("--slack", arguments);
    anchor.shiftingWind = contains("--shifting", arguments);
    anchor.dragging = contains("--dragging", arguments);
    engine.anchorSettings = anchor;
}

}  // namespace

int main(int argc, char** argv) {
    const Arguments arguments(argv, argv + argc);
    platform::VirtualMainLoop loop(noon);
    SeededRandom random(static_cast<std::uint64_t>(number("--seed", arguments, 1)));
    simulation::BoatSimulationEngine engine(loop, random);
    gateway::SimulationConfig config;
    gateway::FailureInjection failure;
    gateway::GatewaySimulator gateway(engine, config, failure,
                                      hostOf(loop, random, contains("--times", arguments)));
    app::CommandLine::apply(arguments, config, engine);
    config.tcpEnabled = true;
    config.udpEnabled = false;
    applyMode(arguments, engine);

    gateway.start();
    if (!gateway.isRunning) {
        std::fputs((gateway.lastError->value_or("") + "\n").c_str(), stderr);
        return 1;
    }
    for (std::int64_t left = number("--minutes", arguments, 1); left > 0; --left)
        loop.advance(std::chrono::minutes(1));
    return 0;
}
