#include <fmt/format.h>

#include <map>
#include <string>

#include "BoatStateRow.h"
#include "Golden.h"
#include "simulation/AnchorSimulation.h"

namespace tidewright::golden {

using namespace simulation;

namespace {

constexpr GroundTolerances fromNearPositions{.sog = 1e-6, .cog = 2e-3};

AnchorSettings namedSettings(const Row& row) {
    return {.windSpeed = row.number("windSpeed"),
            .windDirection = row.number("windDirection"),
            .shiftingWind = row.flag("shiftingWind"),
            .shiftAmplitude = row.number("shiftAmplitude"),
            .chainLength = row.number("chainLength"),
            .chainTaut = row.flag("chainTaut"),
            .dragging = row.flag("dragging"),
            .dragSpeed = row.number("dragSpeed")};
}

void expectAnchor(const Row& row, const BoatState& state, const AnchorSimulation& anchor) {
    constexpr double fine = 1e-9;
    expectState(row, state, fromNearPositions);
    row.expectNear("elapsed", anchor.elapsed, fine);
    row.expectNear("anchorLatitude", anchor.anchorLatitude, fine);
    row.expectNear("anchorLongitude", anchor.anchorLongitude, fine);
    row.expectNear("east", anchor.east, fine);
    row.expectNear("north", anchor.north, fine);
    row.expectAngle("previousCourse", anchor.previousCourse, fromNearPositions.cog);
}

void expectNoChange(const Row& operation, const AnchorSettings& settings, AnchorSimulation& anchor,
                    BoatState& state) {
    const BoatState before = state;
    const double elapsed = anchor.elapsed;
    anchor.step(operation.number("a"), settings, state, {});
    if (state != before || anchor.elapsed != elapsed)
        operation.fail("a rejected step changed something");
}

void compareRun(Tables& tables, const Row& run) {
    const std::string prefix = fmt::format("anchor_{:02}_", run.integer("run"));
    std::multimap<std::int64_t, Row> operations;
    if (Table* table = tables.find(prefix + "ops"))
        for (const Row& row : table->rows()) operations.emplace(row.integer("beforeStep"), row);

    BoatState state = BoatState::starting({});
    state.latitude = run.number("latitude");
    state.longitude = run.number("longitude");
    state.cog = run.number("cog");
    AnchorSettings settings = namedSettings(run);
    AnchorSimulation anchor(state, settings);
    std::int64_t step = 0;
    for (const Row& row : tables[prefix + "rows"].rows()) {
        while (step < row.integer("step")) {
            ++step;
            const auto [first, last] = operations.equal_range(step);
            for (auto each = first; each != last; ++each) {
                if (each->second.text("op") == "settings")
                    settings = anchorSettings(each->second);
                else
                    expectNoChange(each->second, settings, anchor, state);
            }
            anchor.step(run.number("dt"), settings, state, {});
        }
        expectAnchor(row, state, anchor);
    }
}

}  // namespace

void compareAnchor(Tables& tables) {
    for (const Row& run : tables["anchor_runs"].rows()) compareRun(tables, run);
}

}  // namespace tidewright::golden
