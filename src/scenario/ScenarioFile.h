#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "scenario/ScenarioReader.h"

namespace tidewright::scenario {

/// The largest file that is read, in bytes: 1 MiB.
inline constexpr std::size_t largestScenario = std::size_t{1} << 20U;

/// A scenario, or why there is none: whole lines of French, the last of which begins with
/// "ERREUR : ".
struct ScenarioFile {
    std::optional<Scenario> scenario;
    std::string complaint;
};

/// Reads and checks the whole of the file at `path`. Where it can be read and something is wrong
/// with it, the complaint is mistakesText().
ScenarioFile readScenarioFile(const std::string& path, const RunOptions& options);

}  // namespace tidewright::scenario
