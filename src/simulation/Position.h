#pragma once

namespace tidewright::simulation {

/// A place on the water.
struct Position {
    double latitude = 0;   ///< degrees, north positive
    double longitude = 0;  ///< degrees, east positive

    bool operator==(const Position&) const = default;
};

}  // namespace tidewright::simulation
