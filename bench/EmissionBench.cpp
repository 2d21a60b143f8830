#include <benchmark/benchmark.h>

#include "gateway/Assembly.h"
#include "platform/SystemRandom.h"
#include "platform/VirtualMainLoop.h"
#include "support/ReadOutHost.h"

namespace tidewright::bench {
namespace {
using namespace std::chrono_literals;

void minuteOfEmission(benchmark::State& state) {
    platform::VirtualMainLoop loop;
    platform::SystemRandom random;
    gateway::Assembly assembly(readOutHost(loop, random, [](const std::string&) {}));
    assembly.gateway.start();
    for (auto _ : state) loop.advance(1min);
}
BENCHMARK(minuteOfEmission)->Name("a minute of default emission");

}  // namespace
}  // namespace tidewright::bench
