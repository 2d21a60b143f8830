#include <benchmark/benchmark.h>

#include <memory>

#include "gateway/GatewaySimulator.h"
#include "platform/SystemRandom.h"
#include "platform/VirtualMainLoop.h"

namespace tidewright::bench {
namespace {
using namespace std::chrono_literals;

struct DiscardingServer final : network::StreamServer {
    std::optional<network::StartFailure> start(std::uint16_t) override { return std::nullopt; }
    void stop() override {}
    void broadcast(network::SharedBytes) override {}
    void dropAllClients() override {}
};

struct DiscardingSender final : network::DatagramSender {
    void start(const std::string&, std::uint16_t) override {}
    void send(network::SharedBytes) override {}
    void stop() override {}
};

void minuteOfEmission(benchmark::State& state) {
    platform::VirtualMainLoop loop;
    platform::SystemRandom random;
    simulation::BoatSimulationEngine engine(loop, random);
    gateway::SimulationConfig config;
    gateway::FailureInjection failure;
    gateway::GatewaySimulator gateway(engine, config, failure,
                                      {.loop = loop,
                                       .random = random,
                                       .tcp = std::make_unique<DiscardingServer>(),
                                       .udp = std::make_unique<DiscardingSender>(),
                                       .bestInterface = [] { return std::nullopt; },
                                       .utcOffset = platform::systemUtcOffset,
                                       .setClipboard = {}});
    gateway.start();
    for (auto _ : state) loop.advance(1min);
}
BENCHMARK(minuteOfEmission)->Name("a minute of default emission");

}  // namespace
}  // namespace tidewright::bench
