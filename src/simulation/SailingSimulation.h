#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "simulation/BoatState.h"
#include "simulation/SailingEnvironment.h"
#include "simulation/SailingProgram.h"
#include "simulation/SeededGenerator.h"
#include "simulation/WindModel.h"

namespace tidewright::simulation {

/// One leg as it is sailed.
struct SailingLeg {
    PointOfSail sail = PointOfSail::beat;
    double duration = 540;      ///< seconds
    double windFraction = 0.5;  ///< place of the leg's wind zone inside the preset's range, [0, 1]
    double shift = 0;           ///< wind direction of the zone against the base direction, degrees
};

/// Where in their swing the slow movements around the boat begin, radians, [0, 2 pi).
struct SwellPhases {
    double unused = 0;  ///< drawn all the same: the others must stay what they are
    double surge = 0;
    double slowYaw = 0;
    double quickYaw = 0;
    double currentSpeed = 0;
    double currentDirection = 0;
    double slowDepth = 0;
    double quickDepth = 0;

    bool operator==(const SwellPhases&) const = default;

    /// Draws them all, in order.
    static SwellPhases drawn(SeededGenerator& rng);
};

/// How to turn when the side changes: bow through the wind, or stern.
enum class Maneuver { tack, gybe };

/// The boat in automatic mode: sails the legs of a programme, cuts upwind and downwind legs into
/// boards ended by tacks or gybes, steers with a helm that turns no faster than a boat does, and
/// writes every instrument. A value: the same seed and the same steps give the same run.
///
/// Sides: +1 starboard tack (the wind comes over the starboard side), -1 port tack.
struct SailingSimulation {
    SeededGenerator rng;
    SailingProgram program;
    SailingEnvironment environment;
    WindModel wind;
    SwellPhases phase;
    double time = 0;  ///< seconds sailed since construction

    // The leg of the programme.
    SailingLeg leg;
    std::int64_t legIndex = 0;
    double legElapsed = 0;                        ///< seconds
    double legSideRule = 0;                       ///< see LegTemplate::sideRule
    bool legNeedsSideCheck = true;                ///< the next step applies the side rule
    PointOfSail currentSail = PointOfSail::beat;  ///< as shown in the status line

    // The board: a piece of an upwind or downwind leg, on one side.
    std::optional<Position> home;       ///< boards lead back to it
    double boardElapsed = 0;            ///< seconds
    std::optional<double> boardLength;  ///< seconds; absent on legs without boards

    // The helm.
    double side = +1;
    double theta = 43;         ///< angle off the wind, degrees: heading = wind direction - theta;
                               ///< [0, 360) but for manoeuvres, where it may leave that range
    double thetaTarget = 43;   ///< what the helm steers theta to
    bool needsResync = false;  ///< the next step takes the helm over from the boat as it lies

    // The manoeuvre.
    bool maneuvering = false;  ///< a tack or gybe is under way
    double maneuverSide = +1;
    bool maneuverIsTack = true;
    std::optional<double> pendingSide;  ///< asked for meanwhile
    std::int64_t tackCount = 0;         ///< tacks started
    std::int64_t gybeCount = 0;         ///< gybes started

    // The crew, and what they get out of the boat.
    double stepTarget = 0.94;       ///< share of the polar that the crew works towards
    double stepSmooth = 0.94;       ///< as reached so far
    double performanceElapsed = 0;  ///< seconds into the crew's current step
    double performanceLength = 0;   ///< seconds
    double stw = 6;                 ///< knots

    /// Draws the wind's phases, its own, leg 0 and the length of the first crew step, in that
    /// order.
    SailingSimulation(SailingProgram program, const SailingEnvironment& environment,
                      std::uint64_t seed);

    /// Makes `state` the home of this run and writes into it the instruments of a boat already
    /// under way; `now` stamps it.
    void prime(BoatState& state, platform::WallTime now);

    /// Sails on for `dt` seconds, within (0, 5); any other step changes nothing at all.
    void step(double dt, BoatState& state, platform::WallTime now);

    /// Tacks or gybes at once, turning the leg into ten minutes of beating or running. Refused, and
    /// nothing changes, while a manoeuvre is under way.
    bool triggerManeuver(Maneuver maneuver);

    /// Takes up new wind and crew settings; the wind gets there within a minute or so.
    void setEnvironment(const SailingEnvironment& newEnvironment);

    /// Begins leg number `index` of the programme. Leaves side, helm and manoeuvre alone.
    void loadLeg(std::int64_t index);

    /// Starts a manoeuvre to `newSide`, by the shorter turn unless `forced`. Does nothing when the
    /// boat is on that side or a manoeuvre is under way.
    void request(double newSide, std::optional<Maneuver> forced);

    /// The side that points nearer home; nothing within four nautical miles of it.
    std::optional<double> preferredSide(const BoatState& state) const;

    /// Ends the crew's step: a little better each time, and back when nothing is left to gain.
    void nextPerformanceZone();

    /// Three lines of French about what the boat is doing.
    std::string statusLine() const;

private:
    double targetAngle() const;
    double helmAngle() const;
    double crewFactor() const;
    double heading() const;
    std::optional<double> drawBoardLength();

    void resync(const BoatState& state);
    void advanceLeg(double dt);
    void applySideRule(const BoatState& state);
    void advanceBoard(double dt, const BoatState& state);
    void endBoard(const BoatState& state);
    void helm(double dt);
    void endManeuver();
    void advanceCrew(double dt);
    void advanceSpeed(double dt, double heading);
    void compose(double heading, BoatState& state, platform::WallTime now) const;
};

}  // namespace tidewright::simulation
