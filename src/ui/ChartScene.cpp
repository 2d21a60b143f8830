#include "ui/ChartScene.h"

#include <algorithm>
#include <utility>

namespace tidewright::ui {

namespace {

using simulation::AISTarget;
using simulation::BoatSimulationEngine;

std::optional<ChartAnchorage> anchorageOf(const BoatSimulationEngine& engine) {
    const auto& anchor = engine.anchor();
    if (engine.mode != simulation::ControlMode::anchor || !anchor) return std::nullopt;
    return ChartAnchorage{.anchor = {anchor->anchorLatitude, anchor->anchorLongitude},
                          .swingRadius = swingRadius(engine.anchorSettings),
                          .chainOut = chainOut(engine.anchorSettings)};
}

std::vector<ChartVessel> nearestVessels(const std::vector<AISTarget>& targets, ChartPlace boat) {
    std::vector<std::pair<double, const AISTarget*>> byDistance;
    byDistance.reserve(targets.size());
    for (const AISTarget& each : targets)
        byDistance.emplace_back(offset(boat, {each.latitude, each.longitude}).length(), &each);
    const auto count = std::min(byDistance.size(), ChartScene::mostVessels);
    std::ranges::partial_sort(byDistance, byDistance.begin() + static_cast<std::ptrdiff_t>(count));
    byDistance.resize(count);

    std::vector<ChartVessel> nearest;
    nearest.reserve(count);
    for (const auto& [distance, each] : byDistance)
        nearest.push_back({.name = each->name,
                           .place = {each->latitude, each->longitude},
                           .course = each->cog,
                           .speed = each->sog});
    return nearest;
}

}  // namespace

ChartScene::ChartScene(const BoatSimulationEngine& engine, const simulation::Track& whole)
    : boat{engine.state->latitude, engine.state->longitude},
      heading(engine.state->heading),
      course(engine.state->cog),
      speed(engine.state->sog),
      anchorage(anchorageOf(engine)),
      vessels(nearestVessels(engine.traffic.targets, boat)) {
    if (whole.points().empty()) return;
    const auto recent = whole.since(whole.points().back().time - trackLength);
    trackTime = std::chrono::round<std::chrono::seconds>(recent.back().time - recent.front().time);
    track.reserve(recent.size());
    for (const auto& each : recent) track.push_back({each.latitude, each.longitude});
}

}  // namespace tidewright::ui
