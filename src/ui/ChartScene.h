#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "simulation/BoatSimulationEngine.h"
#include "simulation/Track.h"
#include "ui/ChartPlace.h"

namespace tidewright::ui {

/// An AIS vessel on the chart.
struct ChartVessel {
    std::string name;
    ChartPlace place;
    double course = 0;  ///< over ground, degrees true
    double speed = 0;   ///< over ground, knots
};

/// What holds the boat at anchor.
struct ChartAnchorage {
    ChartPlace anchor;
    double swingRadius = 0;  ///< how far from the anchor she lies, metres
    double chainOut = 0;     ///< how far she could ever lie, metres
};

/// What there is to see on the chart at one moment.
struct ChartScene {
    static constexpr std::size_t mostVessels = 100;
    static constexpr auto trackLength = std::chrono::minutes(30);

    ChartPlace boat;
    double heading = 0;                       ///< of the boat, degrees true
    double course = 0;                        ///< of the boat over ground, degrees true
    double speed = 0;                         ///< of the boat over ground, knots
    std::vector<ChartPlace> track;            ///< of the last trackLength, oldest first
    std::chrono::seconds trackTime{0};        ///< from the track's first point to its last
    std::optional<ChartAnchorage> anchorage;  ///< only at anchor
    std::vector<ChartVessel> vessels;         ///< the nearest mostVessels, nearest first

    ChartScene() = default;
    ChartScene(const simulation::BoatSimulationEngine& engine, const simulation::Track& track);
};

}  // namespace tidewright::ui
