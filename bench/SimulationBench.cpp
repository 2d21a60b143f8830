#include <benchmark/benchmark.h>

#include <cmath>

#include "simulation/BoatSimulationEngine.h"
#include "support/HandCrankedLoop.h"
#include "support/ScriptedRandom.h"

namespace tidewright::bench {
namespace {
using namespace std::chrono_literals;

void sine(benchmark::State& state) {
    double angle = 0.1;
    for (auto _ : state) {
        benchmark::DoNotOptimize(angle);
        benchmark::DoNotOptimize(std::sin(angle));
        angle += 0.7;
    }
}
BENCHMARK(sine)->Name("std::sin");

void automaticStep(benchmark::State& state) {
    HandCrankedLoop loop;
    ScriptedRandom random;
    simulation::BoatSimulationEngine engine(loop, random);
    engine.start(0);
    for (auto _ : state) {
        loop.setClock(loop.wallClock() + 100ms);
        engine.tick();
    }
}
BENCHMARK(automaticStep)->Name("an engine step under sail");

void day(benchmark::State& state) {
    constexpr int steps = 864'000;
    for (auto _ : state) {
        simulation::SailingSimulation sailing(simulation::SailingProgram::sequence, {}, 1);
        auto boat = simulation::BoatState::starting({});
        sailing.prime(boat, {});
        for (int i = 0; i < steps; ++i) sailing.step(0.1, boat, {});
        benchmark::DoNotOptimize(boat);
    }
}
BENCHMARK(day)->Name("24 hours under sail, 864,000 steps")->Iterations(1);

}  // namespace
}  // namespace tidewright::bench
