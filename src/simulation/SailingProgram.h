#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "simulation/PointOfSail.h"

namespace tidewright::simulation {

/// What the boat sails in automatic mode: an endless list of legs.
enum class SailingProgram { sequence, beat, reach, run };

inline constexpr std::array allSailingPrograms{SailingProgram::sequence, SailingProgram::beat,
                                               SailingProgram::reach, SailingProgram::run};

/// As in "sequence".
std::string_view rawValue(SailingProgram program);

/// The inverse of rawValue(); nothing for any other text.
std::optional<SailingProgram> sailingProgram(std::string_view rawValue);

/// For the user, in French: the programme's name, and a sentence or two about it.
std::string_view label(SailingProgram program);
std::string_view description(SailingProgram program);

/// A leg as the programme plans it, before chance.
struct LegTemplate {
    PointOfSail sail = PointOfSail::beat;
    double duration = 0;     ///< seconds
    double nominalWind = 0;  ///< on a scale from 10 to 16 knots, whatever wind is really chosen
    double sideRule = 0;     ///< +1 starboard tack, -1 port tack, 0 the side the boat is on
};

/// Leg number `index` of `program`; the cycles also run on below zero.
LegTemplate legTemplate(SailingProgram program, std::int64_t index);

}  // namespace tidewright::simulation
