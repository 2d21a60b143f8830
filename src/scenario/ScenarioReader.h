#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "gateway/Assembly.h"
#include "scenario/Mistake.h"
#include "scenario/Scenario.h"

namespace tidewright::scenario {

/// What the command line says about the run that a scenario is for.
struct RunOptions {
    /// Writes what it sets, after the scenario's own `set`; null: nothing.
    std::function<void(gateway::Assembly&)> apply;

    /// The sentences come from a file: nothing of the boat can be judged.
    bool replays = false;
};

/// What a text says, where nothing is wrong with it; otherwise what is, in the text's order.
struct ScenarioReading {
    std::optional<Scenario> scenario = std::nullopt;
    std::vector<Mistake> mistakes;  ///< the first twenty at least
};

/// Reads and checks the whole of `text`.
ScenarioReading readScenario(std::string_view text, const RunOptions& options);

}  // namespace tidewright::scenario
