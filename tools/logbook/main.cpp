#include <fmt/format.h>

#include <chrono>
#include <cstdio>
#include <string>

#include "app/CommandLine.h"
#include "gateway/Assembly.h"
#include "platform/VirtualMainLoop.h"
#include "simulation/SeededRandom.h"
#include "support/ReadOutHost.h"

using namespace tidewright;
using app::Arguments;
using app::CommandLine::contains;
using app::CommandLine::integer;
using app::CommandLine::value;

namespace {

constexpr platform::WallTime noon =
    std::chrono::sys_days{std::chrono::June / 1 / 2026} + std::chrono::hours(12);

/// Writes `sentence` on standard output, after the time if wanted.
void print(const std::string& sentence, const platform::MainLoop& loop, bool withTime) {
    const std::chrono::duration<double> time = loop.now().time_since_epoch();
    const std::string text = withTime ? fmt::format("{:.2f} {}", time.count(), sentence) : sentence;
    std::fwrite(text.data(), 1, text.size(), stdout);
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
    simulation::SeededRandom random(static_cast<std::uint64_t>(number("--seed", arguments, 1)));
    const bool withTimes = contains("--times", arguments);
    gateway::Assembly assembly(
        readOutHost(loop, random, [&](const std::string& each) { print(each, loop, withTimes); }));
    app::CommandLine::apply(arguments, assembly.config, assembly.engine);
    assembly.config.tcpEnabled = true;
    assembly.config.udpEnabled = false;
    applyMode(arguments, assembly.engine);

    assembly.gateway.start();
    if (!assembly.gateway.isRunning) {
        std::fputs((assembly.gateway.lastError->value_or("") + "\n").c_str(), stderr);
        return 1;
    }
    for (std::int64_t left = number("--minutes", arguments, 1); left > 0; --left)
        loop.advance(std::chrono::minutes(1));
    return 0;
}
