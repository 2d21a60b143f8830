#include <string>
#include <utility>
#include <vector>

#include "Golden.h"
#include "app/HeadlessRunner.h"
#include "support/HandCrankedLoop.h"
#include "support/PretendHost.h"
#include "support/ScriptedRandom.h"

namespace tidewright::golden {

using app::Arguments;
using app::CommandLine::contains;

namespace {

/// `joined` split at every "|", empty pieces kept.
Arguments argumentsOf(std::string_view joined) {
    Arguments arguments;
    while (true) {
        const auto bar = joined.find('|');
        arguments.emplace_back(joined.substr(0, bar));
        if (bar == std::string_view::npos) return arguments;
        joined.remove_prefix(bar + 1);
    }
}

void expectSettings(const Row& row, const gateway::SimulationConfig& config,
                    const simulation::BoatSimulationEngine& engine) {
    row.expectText("preset", config.preset->id);
    row.expectFlag("tcpEnabled", config.tcpEnabled);
    row.expectFlag("udpEnabled", config.udpEnabled);
    row.expectInteger("tcpPort", config.tcpPort);
    row.expectInteger("udpPort", config.udpPort);
    row.expectText("gpsTalker", config.gpsTalker.get());
    row.expectFlag("ais", config.ais);
    row.expectInteger("aisTargetCount", config.aisTargetCount);
    row.expectText("program", rawValue(engine.program));
    row.expectText("windPreset", rawValue(engine.environment->windPreset));
    row.expectExactly("customMin", engine.environment->customMin);
    row.expectExactly("customMax", engine.environment->customMax);
    row.expectClose("performance", engine.environment->performance);
    row.expectFlag("crewSteps", engine.environment->crewSteps);
}

/// Runs the headless program's start and answers what it wrote; compares the settings on the way.
std::string bannerOf(const Row& row, const Arguments& arguments, PretendHost pretend) {
    HandCrankedLoop loop;
    ScriptedRandom random;
    std::string written;
    const app::HeadlessRunner runner(
        arguments, pretend.host(loop, random),
        {.write = [&](std::string_view text) { written += text; }, .end = [](int) {}}, {});
    expectSettings(row, runner.assembly().config, runner.assembly().engine);
    return written;
}

}  // namespace

void compareCommandLine(Tables& tables) {
    for (const Row& row : tables["cli"].rows()) {
        const Arguments arguments = argumentsOf(row.text("arguments"));
        row.expectFlag("headless", contains("--headless", arguments));
        if (!contains("--headless", arguments)) continue;
        row.expectText("banner", bannerOf(row, arguments, {}));
        PretendHost offline;
        offline.interface.reset();
        row.expectText("bannerWithoutInterface", bannerOf(row, arguments, offline));
    }
}

}  // namespace tidewright::golden
