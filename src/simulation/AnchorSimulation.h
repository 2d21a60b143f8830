#pragma once

#include "simulation/BoatState.h"

namespace tidewright::simulation {

/// What the user chooses about lying to the anchor. Out-of-range values are clamped where used.
struct AnchorSettings {
    double windSpeed = 16;       ///< knots, [0, 50]
    double windDirection = 230;  ///< where it comes from, degrees true, any value
    bool shiftingWind = false;   ///< the wind swings to and fro, over 120 s
    double shiftAmplitude = 35;  ///< how far to each side, degrees
    double chainLength = 45;     ///< metres, [5, 200]
    bool chainTaut = true;   ///< taut: near the end of the chain; slack: nearer the anchor, slower
    bool dragging = false;   ///< the anchor slips downwind
    double dragSpeed = 0.4;  ///< knots, [0, 3]

    bool operator==(const AnchorSettings&) const = default;
};

/// The chain that is out, metres: what was chosen, within its limits.
double chainOut(const AnchorSettings& settings);

/// How far from her anchor the boat lies when she is at rest, metres.
double swingRadius(const AnchorSettings& settings);

/// A boat that swings round her anchor: she chases, with a lag, a point a fixed distance downwind
/// of it. A value; it keeps no settings, so changes act from the next step on.
struct AnchorSimulation {
    double anchorLatitude = 0;     ///< degrees
    double anchorLongitude = 0;    ///< degrees
    double east = 0;               ///< boat from anchor, metres
    double north = 0;              ///< boat from anchor, metres
    double elapsed = 0;            ///< seconds since the anchor was dropped
    double previousLatitude = 0;   ///< where the boat was a step ago, degrees
    double previousLongitude = 0;  ///< where the boat was a step ago, degrees
    double previousCourse = 0;     ///< last course over ground, [0, 360), kept while nearly still

    /// Drops the anchor so that the boat, where she is in `state`, lies straight downwind of it at
    /// the end of her swing; wind shifts are left out of account.
    AnchorSimulation(const BoatState& state, const AnchorSettings& settings);

    /// Swings on for `dt` seconds, within (0, 5), and writes position, motion and wind into
    /// `state`; any other step changes nothing. `now` stamps the state.
    void step(double dt, const AnchorSettings& settings, BoatState& state, platform::WallTime now);

private:
    void drag(double dt, double speed, double downwind);
    void swing(double dt, const AnchorSettings& settings, double downwind);
    void moveBoat(double dt, BoatState& state);
};

}  // namespace tidewright::simulation
