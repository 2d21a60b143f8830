#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "app/CommandLine.h"
#include "app/RunPlan.h"
#include "gateway/Assembly.h"
#include "gateway/Replay.h"
#include "network/LineSource.h"
#include "network/Recorder.h"
#include "platform/PacedMainLoop.h"
#include "scenario/ScenarioRunner.h"

namespace tidewright::app {

/// The gateway without a window: applies the options, starts, says so, and watches.
class HeadlessRunner {
public:
    /// Where the runner writes, and how it comes to an end.
    struct Terminal {
        std::function<void(std::string_view)> write;  ///< to standard error, in one piece
        std::function<void(int status)> end;          ///< ends the program with that exit status
    };

    /// The run's own clock, where it has one.
    struct Run {
        RunPlan plan = {};
        platform::PacedMainLoop* clock = nullptr;  ///< the host's loop; null: the machine's clock
        std::optional<scenario::Scenario> scenario = {};        ///< what the plan names
        std::unique_ptr<network::LineSource> replay = nullptr;  ///< likewise
        std::function<void()> hold = [] {};                     ///< makes the run stand still
        std::function<void()> resume = [] {};
    };

    /// Starts the gateway and writes the banner, whatever came of the start; then looks every
    /// second whether it still runs, and where it does not writes why and ends with 1. Where the
    /// command line cannot be read, writes why and ends with 2 instead.
    HeadlessRunner(const Arguments& arguments, gateway::Host host, Terminal terminal, Run run);

    HeadlessRunner(const HeadlessRunner&) = delete;
    HeadlessRunner& operator=(const HeadlessRunner&) = delete;

    const gateway::Assembly& assembly() const { return assembly_; }

    /// Comes to an end with `status`: clients get everything, and the recording is written.
    void finish(int status);

    /// The same, for a program that was told to stop: nobody is waited for long.
    void interrupt();

private:
    gateway::Host equipped(gateway::Host host);
    std::optional<std::string> apply(const Arguments& arguments);
    bool openRecording();
    void beginReplay();
    void beginScenario();
    void goOnRecording();
    bool hasNetwork() const;
    void record(const network::SharedBytes& sentence);
    void endRecording(const network::OutputFile::Failure& why);
    void endWhenRecorded(int status);
    std::string banner() const;
    std::string runLines() const;
    void watch();
    void fail(int status, const std::string& why);

    platform::MainLoop& machineLoop_;
    Terminal terminal_;
    Run run_;
    gateway::Assembly assembly_;
    std::unique_ptr<network::Recorder> recorder_;
    std::unique_ptr<gateway::Replay> replay_;
    std::unique_ptr<scenario::ScenarioRunner> scenario_;
    platform::Subscription watchTimer_;
    bool isHeldForReader_ = false;
    bool isOver_ = false;
};

}  // namespace tidewright::app
