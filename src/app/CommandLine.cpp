#include "app/CommandLine.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>

#include "platform/DecimalNumber.h"

namespace tidewright::app {

namespace {

using simulation::BoatSimulationEngine;
using simulation::SailingEnvironment;
using simulation::WindRange;

constexpr double lowestPerformance = 0.7;
constexpr double highestPerformance = 1.15;

/// `text` without its leading "+"; empty, thus no number, if another sign follows.
std::string_view withoutPlus(std::string_view text) {
    if (!text.starts_with('+')) return text;
    text.remove_prefix(1);
    return text.starts_with('-') ? std::string_view() : text;
}

void applyPreset(const Arguments& arguments, gateway::SimulationConfig& config) {
    const auto id = CommandLine::value("--preset", arguments);
    const auto& presets = gateway::GatewayPreset::all;
    const auto preset = std::ranges::find_if(
        presets, [&id](const gateway::GatewayPreset& each) { return each.id == id; });
    if (preset != presets.end()) config.apply(*preset);
}

void applyNetwork(const Arguments& arguments, gateway::SimulationConfig& config) {
    if (const auto text = CommandLine::value("--tcp-port", arguments))
        if (const auto port = CommandLine::port(*text)) config.tcpPort = *port;
    if (const auto text = CommandLine::value("--udp-port", arguments))
        if (const auto port = CommandLine::port(*text)) config.udpPort = *port;
    if (const auto text = CommandLine::value("--ais", arguments))
        if (const auto count = CommandLine::integer(*text)) config.aisTargetCount = *count;
}

void applySailing(const Arguments& arguments, BoatSimulationEngine& engine) {
    if (const auto name = CommandLine::value("--program", arguments))
        if (const auto program = simulation::sailingProgram(*name)) engine.program = *program;

    SailingEnvironment environment = engine.environment;
    if (const auto text = CommandLine::value("--wind-range", arguments)) {
        if (const auto range = CommandLine::windRange(*text)) {
            environment.windPreset = simulation::WindPreset::custom;
            environment.customMin = range->low;
            environment.customMax = range->high;
        }
    }
    if (const auto text = CommandLine::value("--polar", arguments))
        if (const auto percent = CommandLine::decimal(*text))
            environment.performance =
                std::clamp(*percent / 100, lowestPerformance, highestPerformance);
    if (CommandLine::contains("--no-steps", arguments)) environment.crewSteps = false;
    engine.environment = environment;
}

}  // namespace

bool CommandLine::contains(std::string_view option, const Arguments& arguments) {
    return std::ranges::find(arguments, option) != arguments.end();
}

std::optional<std::string> CommandLine::value(std::string_view option, const Arguments& arguments) {
    const auto found = std::ranges::find(arguments, option);
    if (found == arguments.end() || found + 1 == arguments.end()) return std::nullopt;
    return *(found + 1);
}

std::optional<std::int64_t> CommandLine::integer(std::string_view text) {
    text = withoutPlus(text);
    std::int64_t number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end) return std::nullopt;
    return number;
}

std::optional<std::uint16_t> CommandLine::port(std::string_view text) {
    const auto number = integer(text);
    if (!number || *number < 0 || *number > std::numeric_limits<std::uint16_t>::max())
        return std::nullopt;
    return static_cast<std::uint16_t>(*number);
}

std::optional<double> CommandLine::decimal(std::string_view text) {
    if (text.find_first_not_of("0123456789.eE+-") != std::string_view::npos) return std::nullopt;
    return platform::decimalNumber(withoutPlus(text));
}

std::optional<WindRange> CommandLine::windRange(std::string_view text) {
    std::vector<double> numbers;
    while (!text.empty()) {
        const auto dash = text.find('-');
        if (const auto number = decimal(text.substr(0, dash))) numbers.push_back(*number);
        if (dash == std::string_view::npos) break;
        text.remove_prefix(dash + 1);
    }
    if (numbers.size() != 2 || !(numbers[0] < numbers[1])) return std::nullopt;
    return WindRange{.low = numbers[0], .high = numbers[1]};
}

void CommandLine::apply(const Arguments& arguments, gateway::SimulationConfig& config,
                        BoatSimulationEngine& engine) {
    applyPreset(arguments, config);
    applyNetwork(arguments, config);
    applySailing(arguments, engine);
    if (contains("--no-tcp", arguments)) config.tcpEnabled = false;
    if (contains("--no-udp", arguments)) config.udpEnabled = false;
}

}  // namespace tidewright::app
