#include "ui/InstrumentTexts.h"

#include <fmt/format.h>

#include <cmath>

namespace tidewright::ui {

std::string sideOf(double angle) {
    const long shown = std::lround(angle);
    if (shown == 0) return "debout";
    if (std::abs(shown) == 180) return "arrière";
    return shown > 0 ? "tribord" : "bâbord";
}

InstrumentTexts::InstrumentTexts(const simulation::BoatState& state)
    : sog(fmt::format("{:.1f}", state.sog)),
      cog(fmt::format("{:.0f}", state.cog)),
      stw(fmt::format("{:.1f}", state.stw)),
      windSpeed(fmt::format("{:.1f}", state.apparentWindSpeed)),
      windAngle(fmt::format("{}", std::labs(std::lround(state.apparentWindAngle)))),
      windSide(sideOf(state.apparentWindAngle)),
      depth(fmt::format("{:.1f}", state.depth)),
      position(fmt::format("{:.5f}, {:.5f}", state.latitude, state.longitude)) {}

}  // namespace tidewright::ui
