#include "simulation/Track.h"

#include <algorithm>

namespace tidewright::simulation {

void Track::append(const TrackPoint& point) {
    points_.push_back(point);
    if (points_.size() > capacity) points_.pop_front();
}

std::vector<TrackPoint> Track::since(platform::WallTime time) const {
    const auto older = std::find_if(points_.rbegin(), points_.rend(),
                                    [time](const TrackPoint& each) { return each.time < time; });
    return {older.base(), points_.end()};
}

}  // namespace tidewright::simulation
