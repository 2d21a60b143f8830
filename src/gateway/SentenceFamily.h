#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "faults/FailureInjection.h"
#include "gateway/AISReports.h"
#include "gateway/SimulationConfig.h"
#include "simulation/AISTarget.h"
#include "simulation/BoatState.h"

namespace tidewright::gateway {

/// The sentences that are sent together, in the order in which families due together go out.
enum class SentenceKind {
    position,
    courseSpeed,
    heading,
    boatSpeed,
    wind,
    depth,
    temperature,
    ais
};

/// What a family may write about at one moment.
struct EmissionSource {
    const simulation::BoatState& boat;  ///< as reported
    const std::vector<simulation::AISTarget>& vessels;
    AISReports& aisReports;  ///< moves on with each emission of AIS
    const std::string& gpsTalker;
    double aisHz = 0;
    platform::WallTime now;
};

/// One family, all of it: what sets its rate, what switches it, what silences it, what it writes.
struct SentenceFamily {
    SentenceKind kind;
    std::string_view name;   ///< as in "courseSpeed"
    std::string_view row;    ///< the last part of its rate's name, as in "course-speed"
    std::string_view label;  ///< of its rate, for the user, in French
    platform::Published<double> SimulationConfig::*hertz;
    platform::Published<bool> SimulationConfig::*enabled;
    platform::Published<bool> faults::FailureInjection::*silencer;  ///< null: no fault silences it

    /// Its framed sentences, in the order in which they are sent.
    std::vector<std::string> (*sentences)(const EmissionSource& source);
};

/// In the order of SentenceKind.
extern const std::array<SentenceFamily, 8> sentenceFamilies;

/// The family of that kind.
const SentenceFamily& family(SentenceKind kind);

}  // namespace tidewright::gateway
