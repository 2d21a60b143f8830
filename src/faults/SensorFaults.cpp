#include "faults/SensorFaults.h"

namespace tidewright::faults {

simulation::BoatState SensorFaults::reported(const simulation::BoatState& state) {
    return state;
}

}  // namespace tidewright::faults
