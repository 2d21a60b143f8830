#include "BoatStateRow.h"

#include <chrono>

namespace tidewright::golden {

simulation::BoatState boatState(const Row& row) {
    return {.latitude = row.number("latitude"),
            .longitude = row.number("longitude"),
            .sog = row.number("sog"),
            .cog = row.number("cog"),
            .heading = row.number("heading"),
            .stw = row.number("stw"),
            .apparentWindAngle = row.number("apparentWindAngle"),
            .apparentWindSpeed = row.number("apparentWindSpeed"),
            .trueWindAngle = row.number("trueWindAngle"),
            .trueWindSpeed = row.number("trueWindSpeed"),
            .depth = row.number("depth"),
            .waterTemperature = row.number("waterTemperature"),
            .gpsFix = row.flag("gpsFix"),
            .satelliteCount = row.integer("satelliteCount"),
            .timestamp = instant(row, "timestampNs")};
}

simulation::AISTarget aisTarget(const Row& row) {
    return {.mmsi = row.integer("mmsi"),
            .name = row.text("name"),
            .latitude = row.number("latitude"),
            .longitude = row.number("longitude"),
            .sog = row.number("sog"),
            .cog = row.number("cog"),
            .heading = row.number("heading"),
            .shipType = row.integer("shipType"),
            .callsign = row.text("callsign")};
}

simulation::SailingEnvironment environment(const Row& row,
                                           const std::array<const char*, 5>& columns) {
    return {.windPreset = simulation::windPreset(row.text(columns[0])).value(),
            .customMin = row.number(columns[1]),
            .customMax = row.number(columns[2]),
            .performance = row.number(columns[3]),
            .crewSteps = row.flag(columns[4])};
}

simulation::AnchorSettings anchorSettings(const Row& operation) {
    return {.windSpeed = operation.number("a"),
            .windDirection = operation.number("b"),
            .shiftingWind = operation.flag("c"),
            .shiftAmplitude = operation.number("d"),
            .chainLength = operation.number("e"),
            .chainTaut = operation.flag("f"),
            .dragging = operation.flag("g"),
            .dragSpeed = operation.number("h")};
}

platform::WallTime instant(const Row& row, std::string_view column) {
    return platform::WallTime(std::chrono::nanoseconds(row.integer(column)));
}

void expectState(const Row& row, const simulation::BoatState& state, GroundTolerances ground) {
    constexpr double fine = 1e-9;
    row.expectNear("latitude", state.latitude, fine);
    row.expectNear("longitude", state.longitude, fine);
    row.expectNear("sog", state.sog, ground.sog);
    row.expectAngle("cog", state.cog, ground.cog);
    row.expectAngle("heading", state.heading, fine);
    row.expectNear("stw", state.stw, fine);
    row.expectAngle("apparentWindAngle", state.apparentWindAngle, fine);
    row.expectNear("apparentWindSpeed", state.apparentWindSpeed, fine);
    row.expectAngle("trueWindAngle", state.trueWindAngle, fine);
    row.expectNear("trueWindSpeed", state.trueWindSpeed, fine);
    row.expectNear("depth", state.depth, fine);
    row.expectNear("waterTemperature", state.waterTemperature, fine);
    row.expectFlag("gpsFix", state.gpsFix);
    row.expectInteger("satelliteCount", state.satelliteCount);
}

}  // namespace tidewright::golden
