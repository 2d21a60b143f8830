#include "simulation/SailingStatus.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <iterator>

#include "simulation/SailingSimulation.h"

namespace tidewright::simulation {

namespace {

/// The manoeuvre under way or the next one; empty on a leg that has neither.
std::string maneuverItem(const SailingSimulation& sailing) {
    if (sailing.maneuvering)
        return sailing.maneuverIsTack ? "virement de bord en cours · " : "empannage en cours · ";
    if (!sailing.boardLength) return {};
    return fmt::format("prochain {} {} · ",
                       sailing.currentSail == PointOfSail::beat ? "virement" : "empannage",
                       clock(*sailing.boardLength - sailing.boardElapsed));
}

}  // namespace

std::string clock(double seconds) {
    const long long whole = std::max(std::llround(seconds), 0LL);
    return fmt::format("{}:{:02}", whole / 60, whole % 60);
}

std::string SailingSimulation::statusLine() const {
    return fmt::format(
        "{} · {} · vent {} nd\n"
        "{}allure suivante {}\n"
        "performance équipage {} % de la polaire · palier suivant {}",
        label(currentSail), side > 0 ? "tribord amures" : "bâbord amures", std::llround(wind.speed),
        maneuverItem(*this), clock(leg.duration - legElapsed), std::llround(100 * crewFactor()),
        clock(performanceLength - performanceElapsed));
}

}  // namespace tidewright::simulation
