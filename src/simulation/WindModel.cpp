#include "simulation/WindModel.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "simulation/Angles.h"
#include "simulation/Smoothing.h"

namespace tidewright::simulation {

WindModel::WindModel(SeededGenerator& rng) {
    for (double& phase : p) phase = rng.halfOpen(0, 2 * std::numbers::pi);
}

void WindModel::approachZone(double dt) {
    const double share = lagShare(dt, 60);
    speedSmooth += (zoneSpeed - speedSmooth) * share;
    shift += (zoneShift - shift) * share;
}

void WindModel::compute(double time) {
    const double w = 2 * std::numbers::pi * time;
    const double gust = 1 + 0.05 * std::sin(w / 58 + p[0]) + 0.025 * std::sin(w / 131 + p[1]);
    speed = std::clamp(speedSmooth * gust, 3.0, 40.0);
    direction = wrap360(baseDirection + shift + 4 * std::sin(w / 310 + p[2]) +
                        1.5 * std::sin(w / 73 + p[3]));
}

}  // namespace tidewright::simulation
