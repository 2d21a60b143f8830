#pragma once

#include <utility>

#include "faults/FailureInjection.h"
#include "gateway/Actions.h"
#include "gateway/GatewaySimulator.h"
#include "gateway/Host.h"
#include "gateway/Settings.h"
#include "gateway/SimulationConfig.h"
#include "simulation/BoatSimulationEngine.h"

namespace tidewright::gateway {

/// The whole of it, wired: the boat, what she is to send, what is to go wrong, the gateway that
/// sends it, and the lists of what a person can set and have done. One for the life of the process.
struct Assembly {
    explicit Assembly(Host host)
        : engine(host.loop, host.random), gateway(engine, config, faults, std::move(host)) {}

    simulation::BoatSimulationEngine engine;
    SimulationConfig config;
    faults::FailureInjection faults;
    GatewaySimulator gateway;
    Settings settings{config, faults, engine, gateway};
    Actions actions{settings, engine, gateway};
};

}  // namespace tidewright::gateway
