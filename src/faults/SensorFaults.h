#pragma once

#include <optional>

#include "faults/FailureInjection.h"
#include "platform/Subscription.h"
#include "simulation/BoatSimulationEngine.h"

namespace tidewright::faults {

/// What the boat's instruments report of her true state.
class SensorFaults {
public:
    /// Both arguments must outlive this.
    SensorFaults(const FailureInjection& faults, const simulation::BoatSimulationEngine& engine);

    /// What they report now.
    simulation::BoatState reported() const;

private:
    void holdWhatFreezes();

    const FailureInjection& faults_;
    const simulation::BoatSimulationEngine& engine_;
    platform::WallTime start_;  // of the run
    std::optional<simulation::BoatState> frozenFix_;
    platform::Subscription faultChanges_;
    platform::Subscription boatChanges_;
};

}  // namespace tidewright::faults
