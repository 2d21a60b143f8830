#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "app/CommandLine.h"
#include "gateway/FailureInjection.h"
#include "gateway/GatewaySimulator.h"
#include "gateway/Host.h"
#include "gateway/SimulationConfig.h"
#include "simulation/BoatSimulationEngine.h"

namespace tidewright::app {

/// The gateway without a window: applies the options, starts, says so, and watches.
class HeadlessRunner {
public:
    /// Where the runner writes, and how it gives up.
    struct Terminal {
        std::function<void(std::string_view)> write;  ///< to standard error, in one piece
        std::function<void()> fail;                   ///< ends the program with exit status 1
    };

    /// Starts the gateway and writes the banner, whatever came of the start; then looks every
    /// second whether it still runs, and where it does not writes why and fails.
    HeadlessRunner(const Arguments& arguments, gateway::Host host, Terminal terminal);

    const gateway::SimulationConfig& config() const { return config_; }
    const simulation::BoatSimulationEngine& engine() const { return engine_; }

    /// Runs on this machine until interrupted or until the gateway stops; answers the exit status.
    static int run(const Arguments& arguments);

private:
    std::string banner() const;
    void watch();

    simulation::BoatSimulationEngine engine_;
    gateway::SimulationConfig config_;
    gateway::FailureInjection failure_;
    platform::MainLoop& loop_;
    gateway::GatewaySimulator gateway_;
    Terminal terminal_;
    platform::Subscription watchTimer_;
};

}  // namespace tidewright::app
