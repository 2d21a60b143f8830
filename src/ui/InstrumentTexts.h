#pragma once

#include <string>

#include "simulation/BoatState.h"

namespace tidewright::ui {

/// The boat's instruments as the tiles show them, without units.
struct InstrumentTexts {
    std::string sog;
    std::string cog;
    std::string stw;
    std::string windSpeed;  ///< apparent
    std::string windAngle;  ///< apparent, off the bow, unsigned
    std::string windSide;   ///< "tribord" or "bâbord"; "debout" dead ahead, "arrière" dead astern
    std::string depth;
    std::string position;

    explicit InstrumentTexts(const simulation::BoatState& state);

    bool operator==(const InstrumentTexts&) const = default;
};

}  // namespace tidewright::ui
