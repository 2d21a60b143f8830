#include <fmt/format.h>

#include <map>
#include <string>
#include <vector>

#include "Golden.h"
#include "simulation/AISTraffic.h"
#include "support/ScriptedRandom.h"

namespace tidewright::golden {

using namespace simulation;

namespace {

void scriptFleet(ScriptedRandom& random, const std::vector<Row>& draws) {
    for (const Row& draw : draws) {
        random.wholeNumbers[900'000].push_back(draw.integer("mmsiOffset"));
        for (const char* column : {"bearing", "distanceNm", "course", "speed"})
            random.numbers.push_back(draw.number(column));
    }
}

void expectTarget(const Row& row, const AISTarget& target) {
    constexpr double fine = 1e-9;
    row.expectInteger("mmsi", target.mmsi);
    row.expectText("name", target.name);
    row.expectNear("latitude", target.latitude, fine);
    row.expectNear("longitude", target.longitude, fine);
    row.expectNear("sog", target.sog, fine);
    row.expectAngle("cog", target.cog, fine);
    row.expectAngle("heading", target.heading, fine);
    row.expectInteger("shipType", target.shipType);
    row.expectText("callsign", target.callsign);
}

void expectFleet(const std::vector<Row>& rows, std::int64_t advances, const AISTraffic& traffic) {
    for (const Row& row : rows) {
        if (row.integer("advances") != advances) continue;
        const auto index = static_cast<std::size_t>(row.integer("index"));
        if (index < traffic.targets.size())
            expectTarget(row, traffic.targets[index]);
        else
            row.fail("no such target");
    }
}

}  // namespace

void compareTraffic(Tables& tables) {
    for (const Row& fleet : tables["traffic_cases"].rows()) {
        const std::string& name = fleet.text("case");
        ScriptedRandom random;
        scriptFleet(random, tables["traffic_fleet_draws"].rowsWhere("case", name));
        std::map<std::int64_t, double> steps;
        for (const Row& row : tables["traffic_advances"].rowsWhere("case", name)) {
            steps[row.integer("advance")] = row.number("dt");
            for (int i = 0; i < 9; ++i) random.numbers.push_back(row.number(fmt::format("u{}", i)));
        }
        const auto expected = tables["traffic_targets"].rowsWhere("case", name);

        AISTraffic traffic(random);
        traffic.regenerate(fleet.integer("count"), fleet.number("latitude"),
                           fleet.number("longitude"));
        if (std::ssize(traffic.targets) != std::max(fleet.integer("count"), std::int64_t{0}))
            fleet.fail(fmt::format("{} targets", traffic.targets.size()));
        expectFleet(expected, 0, traffic);
        for (const auto& [advance, dt] : steps) {
            traffic.advance(dt);
            expectFleet(expected, advance, traffic);
        }
        if (!random.numbers.empty()) fleet.fail("draws were left over");
    }
}

}  // namespace tidewright::golden
