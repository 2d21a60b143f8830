#include "ui/InstrumentTexts.h"

#include <fmt/format.h>

#include <cmath>

namespace tidewright::ui {

namespace {

/// The side of an angle off the bow, as shown: to the whole degree.
std::string side(double angle) {
    const long shown = std::lround(angle);
    if (shown == 0) return "debout";
    if (std::abs(shown) == 180) return "arrière";
    return shown > 0 ? "tribord" : "bâbord";
}

}  // namespace

InstrumentTexts::InstrumentTexts(const simulation::BoatState& state)
    : sog(fmt::format("{:.1f}", state.sog)),
      cog(fmt::format("{:.0f}", state.cog)),
      stw(fmt::format("{:.1f}", state.stw)),
      windSpeed(fmt::format("{:.1f}", state.apparentWindSpeed)),
      windAngle(fmt::format("{}", std::labs(std::lround(state.apparentWindAngle)))),
      windSide(side(state.apparentWindAngle)),
      depth(fmt::format("{:.1f}", state.depth)),
      position(fmt::format("{:.5f}, {:.5f}", state.latitude, state.longitude)) {}

}  // namespace tidewright::ui
