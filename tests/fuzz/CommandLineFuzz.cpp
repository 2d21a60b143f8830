#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>

#include "FuzzInput.h"
#include "app/CommandLine.h"
#include "platform/Check.h"
#include "platform/VirtualMainLoop.h"
#include "support/ScriptedRandom.h"

namespace tidewright::fuzz {

using app::Arguments;
namespace CommandLine = app::CommandLine;
using gateway::GatewayPreset;
using gateway::SimulationConfig;
using platform::check;
using simulation::BoatSimulationEngine;
using simulation::WindPreset;

namespace {

/// What the command line can change, from its defaults.
struct Settings {
    platform::VirtualMainLoop loop;
    ScriptedRandom random;
    BoatSimulationEngine engine{loop, random};
    SimulationConfig config;

    void apply(const Arguments& arguments) { CommandLine::apply(arguments, config, engine); }

    bool operator==(const Settings& other) const {
        return config.preset == other.config.preset.get() &&
               config.tcpEnabled == other.config.tcpEnabled.get() &&
               config.udpEnabled == other.config.udpEnabled.get() &&
               config.tcpPort == other.config.tcpPort.get() &&
               config.udpPort == other.config.udpPort.get() &&
               config.gpsTalker == other.config.gpsTalker.get() &&
               config.aisTargetCount == other.config.aisTargetCount.get() &&
               engine.program == other.engine.program.get() &&
               engine.environment == other.engine.environment.get();
    }
};

/// One argument a line.
Arguments argumentsIn(FuzzInput input) {
    Arguments arguments;
    while (!input.isSpent()) arguments.emplace_back(input.textUpTo('\n'));
    return arguments;
}

bool isDigit(char each) {
    return each >= '0' && each <= '9';
}

/// `text` without its sign and the zeros in front of it, where that leaves digits alone.
std::optional<std::string> digitsOf(std::string_view text) {
    if (text.starts_with('+') || text.starts_with('-')) text.remove_prefix(1);
    if (text.empty() || !std::ranges::all_of(text, isDigit)) return std::nullopt;
    text.remove_prefix(std::min(text.find_first_not_of('0'), text.size() - 1));
    return std::string(text);
}

void checkWholeNumber(const std::string& text) {
    const auto number = CommandLine::integer(text);
    const auto digits = digitsOf(text);
    if (!number) {
        check(!digits || digits->size() >= 19, "a whole number within 64 bits is read");
        return;
    }
    const std::string sign = text.starts_with('-') && *number != 0 ? "-" : "";
    check(digits && sign + *digits == std::to_string(*number), "a number is what its text says");
}

void checkTexts(const Arguments& arguments) {
    for (const auto& text : arguments) {
        checkWholeNumber(text);
        const auto number = CommandLine::integer(text);
        const auto port = CommandLine::port(text);
        check(port.has_value() == (number && 0 <= *number && *number <= 65535),
              "a port is 16 bits");
        if (number) check(CommandLine::decimal(text).has_value(), "a whole number is a decimal");
        const auto decimal = CommandLine::decimal(text);
        check(!decimal || std::isfinite(*decimal), "a decimal is finite");
        const auto range = CommandLine::windRange(text);
        check(!range || (0 <= range->low && range->low < range->high && std::isfinite(range->high)),
              "a wind range ascends");
    }
}

void checkNetwork(const SimulationConfig& config, const Arguments& arguments) {
    const auto& presets = GatewayPreset::all;
    check(std::ranges::find(presets, config.preset.get()) != presets.end(), "a preset is ours");
    check(config.gpsTalker == config.preset->gpsTalker, "the talker is the preset's");
    check(config.tcpEnabled != CommandLine::contains("--no-tcp", arguments), "TCP is on or off");
    check(config.udpEnabled != CommandLine::contains("--no-udp", arguments), "UDP is on or off");
}

void checkSailing(const BoatSimulationEngine& engine, const Arguments& arguments) {
    const simulation::SailingEnvironment& environment = engine.environment;
    check(0.7 <= environment.performance && environment.performance <= 1.15,
          "the performance stays within its range");
    check(environment.windPreset == WindPreset::custom ||
              environment.windPreset == WindPreset::breeze,
          "the wind is the usual one or the wanted one");
    const auto [low, high] = environment.windRange();
    check(std::isfinite(low) && low < high && std::isfinite(high), "the wind has a range");
    check(environment.crewSteps != CommandLine::contains("--no-steps", arguments),
          "the crew has its steps or not");
    check(engine.sailing().environment == environment, "the boat sails in the wind that was set");
}

}  // namespace

void tryInput(FuzzInput input) {
    const Arguments arguments = argumentsIn(input);
    checkTexts(arguments);
    Settings settings;
    settings.apply(arguments);
    checkNetwork(settings.config, arguments);
    checkSailing(settings.engine, arguments);
    Settings again;
    again.apply(arguments);
    check(again == settings, "the same arguments give the same settings");
    again.apply(arguments);
    check(again == settings, "arguments given twice change nothing more");
}

}  // namespace tidewright::fuzz
