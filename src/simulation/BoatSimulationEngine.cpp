#include "simulation/BoatSimulationEngine.h"

#include <utility>

namespace tidewright::simulation {

BoatSimulationEngine::BoatSimulationEngine(platform::MainLoop& loop, platform::RandomSource& random)
    : state(*this, BoatState::starting(loop.wallClock())),
      traffic(random.stream("fleet")),
      loop_(loop),
      random_(random.stream("boat")),
      sailing_(program, environment, random_.bits()),
      lastTick_(loop.now()) {}

void BoatSimulationEngine::start(std::int64_t aisTargets) {
    timer_.reset();
    sailing_ = SailingSimulation(program, environment, random_.bits());
    BoatState first = BoatState::starting(loop_.wallClock(), home);
    sailing_.prime(first, loop_.wallClock());
    state = first;
    anchor_.reset();
    if (mode == ControlMode::anchor) dropAnchor();
    autoStatus = sailing_.statusLine();
    setAISTargets(aisTargets);
    lastTick_ = loop_.now();
    timer_ = loop_.every(tickPeriod, [this] { tick(); });
}

void BoatSimulationEngine::setAISTargets(std::int64_t count) {
    traffic.regenerate(count, state->latitude, state->longitude);
    notify();
}

bool BoatSimulationEngine::triggerManeuver(Maneuver maneuver) {
    if (mode != ControlMode::auto_ || !sailing_.triggerManeuver(maneuver)) return false;
    autoStatus = sailing_.statusLine();
    return true;
}

void BoatSimulationEngine::modeChanged(ControlMode previous) {
    if (mode == previous) return;
    if (mode == ControlMode::auto_) sailing_.needsResync = true;
    if (mode == ControlMode::anchor) dropAnchor();
}

void BoatSimulationEngine::dropAnchor() {
    anchor_.emplace(state, anchorSettings);
}

void BoatSimulationEngine::programChanged() {
    if (program == sailing_.program) return;
    sailing_.program = program;
    sailing_.legIndex = 0;
    sailing_.loadLeg(0);
}

void BoatSimulationEngine::tick() {
    const platform::Instant now = loop_.now();
    const double dt = std::chrono::duration<double>(now - std::exchange(lastTick_, now)).count();
    if (!(dt > 0 && dt < 2)) return;  // held up: no catching up
    const platform::WallTime stamp = loop_.wallClock();
    BoatState next = state;
    switch (mode) {
        case ControlMode::auto_:
            sailing_.step(dt, next, stamp);
            if (std::string status = sailing_.statusLine(); status != autoStatus.get())
                autoStatus = std::move(status);
            break;
        case ControlMode::manual:
            applyManual(manual, dt, next, stamp);
            break;
        case ControlMode::anchor:
            if (!anchor_) anchor_.emplace(next, anchorSettings);
            anchor_->step(dt, anchorSettings, next, stamp);
            break;
    }
    state = next;
    traffic.advance(dt);
}

}  // namespace tidewright::simulation
