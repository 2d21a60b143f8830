#pragma once

#include <string>
#include <vector>

#include "gateway/EmissionSchedule.h"
#include "simulation/BoatState.h"

namespace tidewright::gateway {

/// The framed NMEA 0183 sentences of one family, in the order in which they are sent; none for
/// SentenceKind::ais. `gpsTalker` speaks for position and course over ground, "II" for the rest.
std::vector<std::string> familySentences(SentenceKind kind, const simulation::BoatState& state,
                                         const std::string& gpsTalker, bool corrupt);

}  // namespace tidewright::gateway
