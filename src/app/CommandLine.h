#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "gateway/Assembly.h"
#include "gateway/Settings.h"
#include "gateway/SimulationConfig.h"
#include "simulation/BoatSimulationEngine.h"

namespace tidewright::app {

/// The process's argument list, the program's path included.
using Arguments = std::vector<std::string>;

namespace CommandLine {

bool contains(std::string_view option, const Arguments& arguments);

/// What follows the first `option`, whatever it is; nothing if the option is absent or last.
std::optional<std::string> value(std::string_view option, const Arguments& arguments);

/// A whole number in ASCII digits, with an optional sign, within 64 bits; nothing for other texts.
std::optional<std::int64_t> integer(std::string_view text);

/// A whole number within 0 to 65535; nothing for other texts.
std::optional<std::uint16_t> port(std::string_view text);

/// A decimal number: an optional sign, digits with an optional point, an optional exponent, nothing
/// else, whatever the locale; nothing for other texts and for numbers that a double cannot hold.
std::optional<double> decimal(std::string_view text);

/// Two numbers joined by "-", the first below the second; pieces that are no numbers are passed
/// over.
std::optional<simulation::WindRange> windRange(std::string_view text);

/// Whether an option is there that has the whole command line read strictly.
bool isStrict(const Arguments& arguments);

/// What is wrong with a command line that is read strictly, in French; nothing where nothing is, or
/// where it is not read so.
std::optional<std::string> problem(const Arguments& arguments);

/// What stands for `option` where the command line is read strictly and has no problem; empty for
/// one that takes no value, nothing where it is not there.
std::optional<std::string> given(std::string_view option, const Arguments& arguments);

/// What --set asks for, in order; to be asked where there is no problem.
gateway::Settings::Texts settings(const Arguments& arguments);

/// Applies every option of the headless program but --set to the settings. The preset comes first,
/// so that the others override it wherever they stand; what cannot be read is ignored.
void apply(const Arguments& arguments, gateway::SimulationConfig& config,
           simulation::BoatSimulationEngine& engine);

/// Applies every option to the settings, --set last; why that was refused, in one line of French.
std::optional<std::string> applyAll(const Arguments& arguments, gateway::Assembly& assembly);

}  // namespace CommandLine

}  // namespace tidewright::app
