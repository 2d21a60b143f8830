#include "faults/SensorFaults.h"

namespace tidewright::faults {

SensorFaults::SensorFaults(const FailureInjection& faults,
                           const simulation::BoatSimulationEngine& engine)
    : faults_(faults),
      engine_(engine),
      faultChanges_(faults.observe([this] { holdWhatFreezes(); })),
      boatChanges_(engine.observe([this] { holdWhatFreezes(); })) {}

/// From the first step of a run on: before it the boat is not in her mode yet.
void SensorFaults::holdWhatFreezes() {
    const simulation::BoatState& truth = engine_.state;
    if (!engine_.isTicking()) start_ = truth.timestamp;
    if (!faults_.frozenPosition || truth.timestamp == start_)
        frozenFix_.reset();
    else if (!frozenFix_)
        frozenFix_ = truth;
}

simulation::BoatState SensorFaults::reported() const {
    simulation::BoatState state = engine_.state;
    if (frozenFix_) {
        state.latitude = frozenFix_->latitude;
        state.longitude = frozenFix_->longitude;
        state.sog = frozenFix_->sog;
        state.cog = frozenFix_->cog;
    }
    return state;
}

}  // namespace tidewright::faults
