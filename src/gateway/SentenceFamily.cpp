#include "gateway/SentenceFamily.h"

#include <algorithm>
#include <cstddef>

#include "encoding/NMEA0183Encoder.h"

namespace tidewright::gateway {

namespace {

using encoding::NMEA0183Encoder;
using faults::FailureInjection;
using Sentences = std::vector<std::string>;

const NMEA0183Encoder instruments{"II"};

NMEA0183Encoder gps(const EmissionSource& source) {
    return {source.gpsTalker};
}

Sentences position(const EmissionSource& source) {
    return {gps(source).rmc(source.boat), gps(source).gga(source.boat)};
}

Sentences courseSpeed(const EmissionSource& source) {
    return {gps(source).vtg(source.boat)};
}

Sentences heading(const EmissionSource& source) {
    return {instruments.hdt(source.boat), instruments.hdg(source.boat)};
}

Sentences boatSpeed(const EmissionSource& source) {
    return {instruments.vhw(source.boat)};
}

Sentences wind(const EmissionSource& source) {
    return {instruments.mwvApparent(source.boat), instruments.mwvTrue(source.boat)};
}

Sentences depth(const EmissionSource& source) {
    return {instruments.dbt(source.boat), instruments.dpt(source.boat)};
}

Sentences temperature(const EmissionSource& source) {
    return {instruments.mtw(source.boat)};
}

Sentences ais(const EmissionSource& source) {
    return source.aisReports.next(source.vessels, {.now = source.now}, source.aisHz);
}

constexpr std::array<SentenceFamily, 8> table{{
    {SentenceKind::position, "position", "position", "Position (RMC, GGA)",
     &SimulationConfig::positionHz, &SimulationConfig::gps, &FailureInjection::disableGPS,
     position},
    {SentenceKind::courseSpeed, "courseSpeed", "course-speed", "Route fond (VTG)",
     &SimulationConfig::courseSpeedHz, &SimulationConfig::gps, &FailureInjection::disableGPS,
     courseSpeed},
    {SentenceKind::heading, "heading", "heading", "Cap (HDT, HDG)", &SimulationConfig::headingHz,
     &SimulationConfig::heading, nullptr, heading},
    {SentenceKind::boatSpeed, "boatSpeed", "boat-speed", "Vit. surface (VHW)",
     &SimulationConfig::boatSpeedHz, &SimulationConfig::boatSpeed, nullptr, boatSpeed},
    {SentenceKind::wind, "wind", "wind", "Vent (MWV)", &SimulationConfig::windHz,
     &SimulationConfig::wind, &FailureInjection::disableWind, wind},
    {SentenceKind::depth, "depth", "depth", "Profondeur (DBT, DPT)", &SimulationConfig::depthHz,
     &SimulationConfig::depth, nullptr, depth},
    {SentenceKind::temperature, "temperature", "temperature", "Température (MTW)",
     &SimulationConfig::temperatureHz, &SimulationConfig::temperature, nullptr, temperature},
    {SentenceKind::ais, "ais", "ais", "AIS (VDM)", &SimulationConfig::aisHz, &SimulationConfig::ais,
     &FailureInjection::disableAIS, ais},
}};

static_assert(std::ranges::is_sorted(table, {}, &SentenceFamily::kind) &&
                  table.back().kind == static_cast<SentenceKind>(table.size() - 1),
              "every family has its row, in the order of SentenceKind");

}  // namespace

constinit const std::array<SentenceFamily, 8> sentenceFamilies = table;

const SentenceFamily& family(SentenceKind kind) {
    return sentenceFamilies[static_cast<std::size_t>(kind)];
}

}  // namespace tidewright::gateway
