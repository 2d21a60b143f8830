#pragma once

#include <cstdint>

#include "platform/MainLoop.h"
#include "simulation/Position.h"

namespace tidewright::simulation {

/// Where runs begin unless somebody chooses another place.
inline constexpr Position homeOffQuiberon{.latitude = 47.4, .longitude = -3.55};

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

    /// The state in which every run begins: at `home`, at `timestamp`.
    static BoatState starting(platform::WallTime timestamp, Position home = homeOffQuiberon);

    /// Dead reckoning: moves the position by sog and cog for `dt` seconds. Where a degree of
    /// longitude is shorter than a metre (at the poles) the longitude stays.
    void integratePosition(double dt);
};

}  // namespace tidewright::simulation
