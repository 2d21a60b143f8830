#pragma once

#include "simulation/WindPreset.h"

namespace tidewright::simulation {

/// A range of wind speeds, knots; low < high.
struct WindRange {
    double low = 0;
    double high = 0;
};

/// What the user chooses about the wind and the crew.
struct SailingEnvironment {
    WindPreset windPreset = WindPreset::breeze;
    double customMin = 8;    ///< for WindPreset::custom, knots
    double customMax = 18;   ///< for WindPreset::custom, knots
    double performance = 1;  ///< share of the polar that the boat reaches, 1 = all of it
    bool crewSteps = true;   ///< the crew's own ups and downs, below that level

    bool operator==(const SailingEnvironment&) const = default;

    /// The winds of the chosen preset; at least a knot wide whatever the custom bounds hold.
    WindRange windRange() const;

    /// The wind in knots at `fraction` of that range, clamped to [0, 1].
    double zoneWind(double fraction) const;
};

}  // namespace tidewright::simulation
