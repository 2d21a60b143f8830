#include "app/RunPlan.h"

#include <fmt/format.h>

#include <filesystem>
#include <string_view>
#include <system_error>

#include "platform/PacedMainLoop.h"
#include "platform/TimeText.h"
#include "simulation/SeededRandom.h"

namespace tidewright::app {

namespace {

constexpr std::string_view standardStream = "-";

bool isSameFile(const std::string& a, const std::string& b) {
    std::error_code unknown;
    return std::filesystem::equivalent(a, b, unknown);
}

bool asksForNetwork(std::string_view setting, std::string_view text) {
    const bool isOutput = setting == "network.tcp" || setting == "network.udp";
    const bool isPort = setting == "network.tcp-port" || setting == "network.udp-port";
    return isPort || (isOutput && text == "true");
}

std::string besideUnpaced(std::string_view name) {
    return fmt::format("--speed max coupe TCP et UDP : {} ne va pas avec.", name);
}

}  // namespace

RunPlan RunPlan::of(const Arguments& arguments) {
    RunPlan plan;
    plan.output = CommandLine::given("--output", arguments);
    plan.replay = CommandLine::given("--replay", arguments);
    plan.scenario = CommandLine::given("--scenario", arguments);
    plan.loopsReplay = CommandLine::given("--replay-loop", arguments).has_value();
    plan.picksTcpPort = CommandLine::given("--free-port", arguments).has_value();
    if (const auto text = CommandLine::given("--seed", arguments))
        plan.seed = simulation::parseSeed(*text);
    if (const auto text = CommandLine::given("--start", arguments))
        plan.start = platform::parseUtc(*text);
    if (const auto text = CommandLine::given("--speed", arguments))
        plan.speed = platform::parseSpeed(*text);
    if (const auto text = CommandLine::given("--duration", arguments))
        plan.duration = platform::parseDuration(*text);
    return plan;
}

bool RunPlan::hasOwnClock() const {
    return seed || start || speed || duration || replay || scenario;
}

bool RunPlan::isUnpaced() const {
    return speed == platform::PacedMainLoop::unlimited;
}

void RunPlan::complete(const scenario::Scenario& itsScenario) {
    if (!seed) seed = itsScenario.seed;
    if (!start) start = itsScenario.start;
    if (!speed) speed = itsScenario.speed;
}

std::optional<std::string> RunPlan::problem(
    const Arguments& arguments, const gateway::Settings::Texts& scenarioSettings) const {
    if (loopsReplay && !replay) return "--replay-loop ne va qu'avec --replay.";
    if (loopsReplay && replay == standardStream)
        return "L'entrée standard ne peut être relue : --replay-loop veut un fichier.";
    if (replay && output && isSameFile(*replay, *output))
        return "--replay et --output nomment le même fichier.";
    if (isUnpaced() && !output)
        return "--speed max n'alimente qu'un fichier : il faut aussi --output.";
    if (!isUnpaced()) return std::nullopt;
    for (const std::string_view option : {"--tcp-port", "--udp-port", "--free-port"})
        if (CommandLine::given(option, arguments)) return besideUnpaced(option);
    for (const auto& texts : {CommandLine::settings(arguments), scenarioSettings})
        for (const auto& [name, text] : texts)
            if (asksForNetwork(name, text)) return besideUnpaced(name);
    return std::nullopt;
}

}  // namespace tidewright::app
