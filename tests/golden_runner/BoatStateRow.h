#pragma once

#include <array>

#include "Golden.h"
#include "simulation/AISTarget.h"
#include "simulation/AnchorSimulation.h"
#include "simulation/BoatState.h"
#include "simulation/SailingEnvironment.h"

namespace tidewright::golden {

/// How far the speed and course over ground may be off: coarser where they come from the difference
/// of two near positions.
struct GroundTolerances {
    double sog = 1e-9;
    double cog = 1e-9;
};

/// The state that the row's columns hold; the time stamp only where there is a column for it.
simulation::BoatState boatState(const Row& row);

/// The AIS target that the row's columns hold.
simulation::AISTarget aisTarget(const Row& row);

/// The environment in those five columns, in the order of its fields.
simulation::SailingEnvironment environment(const Row& row,
                                           const std::array<const char*, 5>& columns);

inline constexpr std::array namedEnvironment{"windPreset", "customMin", "customMax", "performance",
                                             "crewSteps"};
inline constexpr std::array operationEnvironment{"a", "b", "c", "d", "e"};

/// The anchor settings of an operation, in the columns a to h.
simulation::AnchorSettings anchorSettings(const Row& operation);

platform::WallTime instant(const Row& row, std::string_view column);

/// Every column of the state but the time stamp, within 1e-9 save what `ground` says.
void expectState(const Row& row, const simulation::BoatState& state, GroundTolerances ground = {});

}  // namespace tidewright::golden
