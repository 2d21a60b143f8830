#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "gateway/Assembly.h"

namespace tidewright::scenario {

/// Something of a run that a scenario can expect to have a value: the true one, whatever faults
/// make of it.
struct Quantity {
    std::string_view name;  ///< as scenarios write it, as in "anchor-distance"
    std::string_view unit;  ///< as shown behind the number; empty: it is a count

    /// Nothing where it cannot be judged now.
    std::optional<double> (*read)(const gateway::Assembly& assembly);

    /// Known of the simulated boat alone, hence not in a replay.
    bool isOfTheBoat = false;

    /// Known at anchor alone.
    bool needsAnchor = false;

    bool isCount() const { return unit.empty(); }
};

/// All of them.
extern const std::array<Quantity, 6> quantities;

/// Null where there is none of that name.
const Quantity* findQuantity(std::string_view name);

}  // namespace tidewright::scenario
