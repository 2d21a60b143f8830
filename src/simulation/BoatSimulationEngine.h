#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/MainLoop.h"
#include "platform/Observable.h"
#include "platform/RandomSource.h"
#include "simulation/AISTraffic.h"
#include "simulation/AnchorSimulation.h"
#include "simulation/BoatState.h"
#include "simulation/ControlMode.h"
#include "simulation/ManualTargets.h"
#include "simulation/Position.h"
#include "simulation/SailingEnvironment.h"
#include "simulation/SailingProgram.h"
#include "simulation/SailingSimulation.h"

namespace tidewright::simulation {

/// The boat and the vessels around her, moved ten times a second in the chosen mode. Lives as long
/// as the process; idle until start(). For the main thread.
class BoatSimulationEngine : public platform::Observable {
public:
    static constexpr auto tickPeriod = std::chrono::milliseconds(100);

    /// Both arguments must outlive this.
    BoatSimulationEngine(platform::MainLoop& loop, platform::RandomSource& random);

    platform::Published<BoatState> state;

    /// Entering anchor mode drops the anchor where the boat is; entering automatic mode takes the
    /// helm over from the boat as she lies.
    platform::Published<ControlMode> mode{*this, ControlMode::auto_,
                                          [this](ControlMode previous) { modeChanged(previous); }};

    platform::Published<ManualTargets> manual{*this, {}};           ///< acts on the next tick
    platform::Published<AnchorSettings> anchorSettings{*this, {}};  ///< acts on the next tick

    /// Another programme begins with its first leg; the same one again changes nothing.
    platform::Published<SailingProgram> program{*this, SailingProgram::sequence,
                                                [this](SailingProgram) { programChanged(); }};

    platform::Published<SailingEnvironment> environment{
        *this, {}, [this](const SailingEnvironment&) { sailing_.setEnvironment(environment); }};

    /// Where runs begin; acts at the next start.
    platform::Published<Position> home{*this, homeOffQuiberon};

    /// What the boat is doing in automatic mode, three lines of French; empty before start().
    platform::Published<std::string> autoStatus{*this, {}};

    AISTraffic traffic;  ///< the vessels around

    const SailingSimulation& sailing() const { return sailing_; }
    const std::optional<AnchorSimulation>& anchor() const { return anchor_; }
    bool isTicking() const { return timer_ != nullptr; }

    /// Begins a new run from home with `aisTargets` vessels around, keeping mode and settings.
    /// Throws std::bad_alloc, not ticking, where memory cannot hold the vessels.
    void start(std::int64_t aisTargets);

    /// Freezes everything where it is.
    void stop() { timer_.reset(); }

    /// Replaces the vessels by `count` new ones around the boat. Throws std::bad_alloc, leaving
    /// none, where memory cannot hold them.
    void setAISTargets(std::int64_t count);

    /// Drops the anchor anew, so that the boat lies to it where she is.
    void dropAnchor();

    /// Tacks or gybes at once. Refused outside automatic mode and during a manoeuvre.
    bool triggerManeuver(Maneuver maneuver);

    /// One step, as long as the time since the last one; what the engine's own timer calls. A step
    /// of two seconds or more is left out, without catching up.
    void tick();

private:
    void modeChanged(ControlMode previous);
    void programChanged();

    platform::MainLoop& loop_;
    platform::RandomSource& random_;
    SailingSimulation sailing_;
    std::optional<AnchorSimulation> anchor_;
    platform::Subscription timer_;
    platform::Instant lastTick_;
};

}  // namespace tidewright::simulation
