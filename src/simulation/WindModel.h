#pragma once

#include <array>

#include "simulation/SeededGenerator.h"

namespace tidewright::simulation {

/// The wind over the water: a zone's wind, reached with a lag, with gusts and veers on top.
struct WindModel {
    double baseDirection = 230;  ///< where the wind comes from before any shift, degrees true
    double speed = 12;           ///< now, with gusts, knots
    double direction = 230;      ///< now, where it comes from, degrees true, [0, 360)
    double zoneSpeed = 12;       ///< of the current zone, knots
    double zoneShift = 0;        ///< of the current zone, degrees, positive clockwise
    double speedSmooth = 12;     ///< zoneSpeed as reached so far, knots
    double shift = 0;            ///< zoneShift as reached so far, degrees
    std::array<double, 4> p{};   ///< phases of gusts (0, 1) and veers (2, 3), radians, [0, 2 pi)

    WindModel() = default;

    /// Draws the four phases, in order.
    explicit WindModel(SeededGenerator& rng);

    /// Moves speedSmooth and shift towards the zone's values for `dt` seconds.
    void approachZone(double dt);

    /// Sets speed, within [3, 40], and direction for `time`, in simulated seconds. Gusts reach 7.5
    /// % either way, veers 5.5 degrees.
    void compute(double time);
};

}  // namespace tidewright::simulation
