#include "ui/ChartPlace.h"

#include <cmath>

#include "simulation/EarthModel.h"

namespace tidewright::ui {

double ChartOffset::length() const {
    return std::hypot(east, north);
}

double ChartOffset::bearing() const {
    return simulation::wrap360(simulation::degrees(std::atan2(east, north)));
}

ChartOffset offset(ChartPlace from, ChartPlace to) {
    const double perDegree = simulation::metresPerDegreeOfLongitude(from.latitude);
    return {.east = (to.longitude - from.longitude) * perDegree,
            .north = (to.latitude - from.latitude) * simulation::metresPerDegreeOfLatitude};
}

}  // namespace tidewright::ui
