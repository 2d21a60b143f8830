#pragma once

#include <cstdint>
#include <string>

namespace tidewright::simulation {

/// One vessel of the traffic around the boat.
struct AISTarget {
    std::int64_t mmsi = 0;      ///< nine digits; drawn, so two vessels may share one
    std::string name;           ///< up to 20 characters reach the air
    double latitude = 0;        ///< degrees, north positive
    double longitude = 0;       ///< degrees, east positive
    double sog = 0;             ///< speed over ground, knots
    double cog = 0;             ///< course over ground, degrees true, [0, 360)
    double heading = 0;         ///< degrees true, always equal to cog
    std::int64_t shipType = 0;  ///< ITU-R M.1371 ship and cargo type, two digits
    std::string callsign;       ///< up to 7 characters reach the air

    bool operator==(const AISTarget&) const = default;
};

}  // namespace tidewright::simulation
