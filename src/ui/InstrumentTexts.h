#pragma once

#include <string>

#include "simulation/BoatState.h"

namespace tidewright::ui {

/// The side that an angle off the bow, in degrees within [-180, 180], is on: "tribord" or "bâbord";
/// "debout" dead ahead, "arrière" dead astern. To the whole degree, as shown.
std::string sideOf(double angle);

/// The boat's instruments as the tiles show them, without units.
struct InstrumentTexts {
    std::string sog;
    std::string cog;
    std::string stw;
    std::string windSpeed;  ///< apparent
    std::string windAngle;  ///< apparent, off the bow, unsigned
    std::string windSide;   ///< apparent, as by sideOf()
    std::string depth;
    std::string position;

    explicit InstrumentTexts(const simulation::BoatState& state);

    bool operator==(const InstrumentTexts&) const = default;
};

}  // namespace tidewright::ui
