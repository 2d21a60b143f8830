#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "gateway/Settings.h"
#include "platform/MainLoop.h"
#include "scenario/Expectation.h"

namespace tidewright::scenario {

/// When a step is played.
enum class Timing {
    at,     ///< so long after the start, or with the step before where that is later
    after,  ///< so long after the step before
    within  ///< with the step before, and what it expects so long after it at the latest
};

/// One thing after the other, at one time: set, do, say, expect, end.
struct Step {
    Timing timing = Timing::at;
    platform::MainLoop::Duration time{0};
    gateway::Settings::Texts set;
    std::vector<std::string> actions;  ///< names of gateway::Actions
    std::string say;                   ///< one line; empty: nothing
    std::vector<Expectation> expectations;
    bool ends = false;  ///< the run, with success
};

/// What is to happen in a run.
struct Scenario {
    std::string name;  ///< one line; may be empty
    std::optional<std::uint64_t> seed;
    std::optional<platform::WallTime> start;  ///< on a whole second
    std::optional<double> speed;              ///< as platform::parseSpeed() reads it
    gateway::Settings::Texts set;             ///< before the start
    std::vector<Step> steps;
};

}  // namespace tidewright::scenario
