#pragma once

#include "faults/FailureInjection.h"
#include "simulation/BoatState.h"

namespace tidewright::faults {

/// What the boat's instruments report of her true state.
class SensorFaults {
public:
    /// `faults` must outlive this.
    explicit SensorFaults(const FailureInjection& faults) : faults_(faults) {}

    /// The state as reported, to be asked once for every new true state.
    simulation::BoatState reported(const simulation::BoatState& state);

private:
    const FailureInjection& faults_;
};

}  // namespace tidewright::faults
