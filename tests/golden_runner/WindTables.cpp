#include "BoatStateRow.h"
#include "Golden.h"
#include "simulation/Polar.h"
#include "simulation/SailingSimulation.h"
#include "simulation/WindModel.h"

namespace tidewright::golden {

using namespace simulation;

void compareWind(Tables& tables) {
    for (const Row& row : tables["polar"].rows())
        row.expectClose("speed", Polar::speed(row.number("twa"), row.number("tws")));

    for (const Row& row : tables["zone_wind"].rows()) {
        SailingEnvironment wind;
        wind.windPreset = windPreset(row.text("windPreset")).value();
        wind.customMin = row.number("customMin");
        wind.customMax = row.number("customMax");
        row.expectClose("lo", wind.windRange().low);
        row.expectClose("hi", wind.windRange().high);
        row.expectClose("zoneWind", wind.zoneWind(row.number("fraction")));
    }

    for (const Row& row : tables["wind_compute"].rows()) {
        WindModel wind;
        wind.p = {row.number("p0"), row.number("p1"), row.number("p2"), row.number("p3")};
        wind.speedSmooth = row.number("speedSmooth");
        wind.shift = row.number("shift");
        wind.compute(row.number("time"));
        row.expectClose("speed", wind.speed);
        row.expectAngle("direction", wind.direction, 1e-12 * 360);
    }

    for (const Row& row : tables["crew_step"].rows()) {
        SailingSimulation sailing(SailingProgram::sequence, {}, 0);
        sailing.rng.state = row.hex("rngState");
        sailing.stepTarget = row.number("stepTarget");
        sailing.nextPerformanceZone();
        row.expectClose("newStepTarget", sailing.stepTarget);
        row.expectClose("newPerformanceLength", sailing.performanceLength);
        row.expectHex("stateAfter", sailing.rng.state);
    }
}

}  // namespace tidewright::golden
