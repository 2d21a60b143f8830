#pragma once

#include <cstddef>
#include <deque>
#include <vector>

#include "platform/MainLoop.h"

namespace tidewright::simulation {

/// Where the boat was at one moment.
struct TrackPoint {
    platform::WallTime time;  ///< UTC
    double latitude = 0;      ///< degrees, north positive
    double longitude = 0;     ///< degrees, east positive

    bool operator==(const TrackPoint&) const = default;
};

/// Where the boat was of late in one run: the last hour, when appended to once a second.
class Track {
public:
    static constexpr std::size_t capacity = 3600;

    /// Adds the newest point; the oldest goes when there are more than `capacity`.
    void append(const TrackPoint& point);

    /// Begins anew, so that no line leads from one run to the next.
    void clear() { points_.clear(); }

    /// Oldest first.
    const std::deque<TrackPoint>& points() const { return points_; }

    /// The newest points, back to the last one before `time`, which is left out; oldest first.
    std::vector<TrackPoint> since(platform::WallTime time) const;

private:
    std::deque<TrackPoint> points_;
};

}  // namespace tidewright::simulation
