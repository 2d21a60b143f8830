#include "ui/ChartRange.h"

#include <algorithm>
#include <cmath>

#include "simulation/EarthModel.h"

namespace tidewright::ui {

namespace {

constexpr double margin = 20;       // pixels from what is shown to the chart's edge
constexpr double leastExtent = 50;  // metres
constexpr double farthestVessel = 3 * simulation::metresPerNauticalMile;  // under way
constexpr double farthestVesselAtAnchor = 6;                              // times the chain
constexpr std::size_t vesselsWanted = 3;

/// How far what is to be seen reaches from the chart's centre, metres.
struct Extent {
    double east = leastExtent;
    double north = leastExtent;

    void include(ChartOffset way) {
        east = std::max(east, std::abs(way.east));
        north = std::max(north, std::abs(way.north));
    }
};

Extent ownExtent(const ChartScene& scene) {
    const ChartPlace centre = chartCentre(scene);
    Extent extent;
    extent.include(offset(centre, scene.boat));
    if (scene.anchorage)
        extent.include({scene.anchorage->chainOut, scene.anchorage->chainOut});
    else
        for (const ChartPlace& each : scene.track) extent.include(offset(centre, each));
    return extent;
}

void includeNearestVessels(const ChartScene& scene, Extent& extent) {
    const double farthest =
        scene.anchorage ? farthestVesselAtAnchor * scene.anchorage->chainOut : farthestVessel;
    const std::size_t count = std::min(scene.vessels.size(), vesselsWanted);
    for (std::size_t i = 0; i < count; ++i) {
        const ChartOffset way = offset(chartCentre(scene), scene.vessels[i].place);
        if (way.length() <= farthest) extent.include(way);
    }
}

double withinLimits(double range) {
    return std::clamp(range, closestRange, widestRange);
}

}  // namespace

ChartPlace chartCentre(const ChartScene& scene) {
    return scene.anchorage ? scene.anchorage->anchor : scene.boat;
}

double automaticRange(const ChartScene& scene, QSizeF size) {
    Extent extent = ownExtent(scene);
    includeNearestVessels(scene, extent);
    const double halfWidth = std::max(size.width() / 2 - margin, 1.0);
    const double halfHeight = std::max(size.height() / 2 - margin, 1.0);
    const double needed = std::max(extent.east / halfWidth, extent.north / halfHeight);
    return withinLimits(std::exp2(std::ceil(4 * std::log2(needed)) / 4));
}

double zoomed(double range, double steps) {
    return withinLimits(range * std::exp2(-steps));
}

}  // namespace tidewright::ui
