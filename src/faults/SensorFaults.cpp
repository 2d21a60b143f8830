#include "faults/SensorFaults.h"

namespace tidewright::faults {

simulation::BoatState SensorFaults::reported() const {
    return engine_.state;
}

}  // namespace tidewright::faults
