#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "app/CommandLine.h"
#include "platform/MainLoop.h"
#include "scenario/Scenario.h"

namespace tidewright::app {

/// What kind of run the command line asks for: its clock, its chance, where its sentences come from
/// and go to beside the network.
struct RunPlan {
    std::optional<std::uint64_t> seed;
    std::optional<platform::WallTime> start;               ///< what the run's clock shows first
    std::optional<double> speed;                           ///< see PacedMainLoop
    std::optional<platform::MainLoop::Duration> duration;  ///< of the run's time
    std::optional<std::string> output;                     ///< a path; "-": standard output
    std::optional<std::string> replay;                     ///< a path; "-": standard input
    std::optional<std::string> scenario;                   ///< a path
    bool loopsReplay = false;
    bool picksTcpPort = false;

    /// What a command line without a problem says.
    static RunPlan of(const Arguments& arguments);

    /// Whether the run has a clock and chance of its own, rather than the machine's.
    bool hasOwnClock() const;

    /// Whether it runs as fast as the machine can, and therefore feeds files only.
    bool isUnpaced() const;

    /// Takes over what the scenario says, where the command line says nothing.
    void complete(const scenario::Scenario& itsScenario);

    /// What in it cannot be had together, in one French sentence; nothing where all can.
    /// `scenarioSettings` are what the scenario writes before the start.
    std::optional<std::string> problem(const Arguments& arguments,
                                       const gateway::Settings::Texts& scenarioSettings) const;
};

}  // namespace tidewright::app
