#pragma once

#include <cstdint>

#include "platform/MainLoop.h"

namespace tidewright::simulation {

/// What the instruments of the boat show at one moment.
struct BoatState {
    double latitude = 0;              ///< degrees, north positive; never wrapped nor clamped
    double longitude = 0;             ///< degrees, east positive; never wrapped nor clamped
    double sog = 0;                   ///< speed over ground, knots
    double cog = 0;                   ///< course over ground, degrees true, [0, 360)
    double heading = 0;               ///< degrees true, [0, 360)
    double stw = 0;                   ///< speed through water, knots
    double apparentWindAngle = 0;     ///< degrees off the bow, [-180, 180], positive to starboard
    double apparentWindSpeed = 0;     ///< knots
    double trueWindAngle = 0;         ///< degrees off the bow, [-180, 180], positive to starboard
    double trueWindSpeed = 0;         ///< knots
    double depth = 0;                 ///< metres
    double waterTemperature = 0;      ///< degrees Celsius
    bool gpsFix = false;              ///< a position fix is available
    std::int64_t satelliteCount = 0;  ///< satellites in use
    platform::WallTime timestamp;     ///< when this was produced, UTC

    bool operator==(const BoatState&) const = default;

    /// The home state, in which every run begins: off Quiberon, at `timestamp`.
    static BoatState starting(platform::WallTime timestamp);

    /// Dead reckoning: moves the position by sog and cog for `dt` seconds. Where a degree of
    /// longitude is shorter than a metre (at the poles) the longitude stays.
    void integratePosition(double dt);
};

}  // namespace tidewright::simulation
