#pragma once

#include "simulation/BoatSimulationEngine.h"

namespace tidewright::faults {

/// What the boat's instruments report of her true state.
class SensorFaults {
public:
    /// `engine` must outlive this.
    explicit SensorFaults(const simulation::BoatSimulationEngine& engine) : engine_(engine) {}

    /// What they report now.
    simulation::BoatState reported() const;

private:
    const simulation::BoatSimulationEngine& engine_;
};

}  // namespace tidewright::faults
