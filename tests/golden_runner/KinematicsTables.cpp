#include <array>
#include <string>
#include <utility>

#include "Golden.h"
#include "simulation/Angles.h"
#include "simulation/BoatState.h"
#include "simulation/DriftState.h"
#include "simulation/ManualTargets.h"
#include "simulation/TrueWind.h"
#include "support/ScriptedRandom.h"

namespace tidewright::golden {

using namespace simulation;

namespace {

constexpr double angleTolerance = 1e-12 * 360;

constexpr std::array<std::pair<const char*, double DriftState::*>, 9> driftFields{{
    {"sog", &DriftState::sog},
    {"cog", &DriftState::cog},
    {"heading", &DriftState::heading},
    {"stw", &DriftState::stw},
    {"aws", &DriftState::aws},
    {"awa", &DriftState::awa},
    {"depth", &DriftState::depth},
    {"temp", &DriftState::temp},
    {"sats", &DriftState::sats},
}};

void compareDrift(Table& table) {
    for (const Row& row : table.rows()) {
        DriftState drift;
        ScriptedRandom random;
        for (const auto& [name, field] : driftFields) {
            drift.*field = row.number(name);
            random.numbers.push_back(row.number("u_" + std::string(name)));
        }
        drift.step(row.number("dt"), random);
        for (const auto& [name, field] : driftFields)
            row.expectClose("new_" + std::string(name), drift.*field);
    }
}

void compareManualSteps(Table& table) {
    for (const Row& row : table.rows()) {
        BoatState state = BoatState::starting({});
        state.latitude = row.number("latitude");
        state.longitude = row.number("longitude");
        applyManual({.sog = row.number("sog"),
                     .heading = row.number("heading"),
                     .windSpeed = row.number("windSpeed"),
                     .windAngle = row.number("windAngle"),
                     .depth = row.number("depth"),
                     .waterTemp = row.number("waterTemp")},
                    row.number("dt"), state, {});
        row.expectClose("newLatitude", state.latitude);
        row.expectClose("newLongitude", state.longitude);
        row.expectClose("newSog", state.sog);
        row.expectClose("newStw", state.stw);
        row.expectAngle("newCog", state.cog, angleTolerance);
        row.expectAngle("newHeading", state.heading, angleTolerance);
        row.expectAngle("newApparentWindAngle", state.apparentWindAngle, angleTolerance);
        row.expectClose("newApparentWindSpeed", state.apparentWindSpeed);
        row.expectAngle("newTrueWindAngle", state.trueWindAngle, angleTolerance);
        row.expectClose("newTrueWindSpeed", state.trueWindSpeed);
        row.expectClose("newDepth", state.depth);
        row.expectClose("newWaterTemperature", state.waterTemperature);
    }
}

}  // namespace

void compareKinematics(Tables& tables) {
    for (const Row& row : tables["wrap"].rows()) {
        row.expectClose("wrap360", wrap360(row.number("value")));
        row.expectClose("wrap180", wrap180(row.number("value")));
    }
    for (const Row& row : tables["true_wind"].rows()) {
        const auto wind = trueWind(row.number("awa"), row.number("aws"), row.number("boatSpeed"));
        row.expectAngle("angle", wind.angle, angleTolerance);
        row.expectClose("speed", wind.speed);
    }
    for (const Row& row : tables["integrate_position"].rows()) {
        BoatState state = BoatState::starting({});
        state.latitude = row.number("latitude");
        state.longitude = row.number("longitude");
        state.sog = row.number("sog");
        state.cog = row.number("cog");
        state.integratePosition(row.number("dt"));
        row.expectClose("newLatitude", state.latitude);
        row.expectClose("newLongitude", state.longitude);
    }
    compareDrift(tables["drift"]);
    compareManualSteps(tables["manual_step"]);
}

}  // namespace tidewright::golden
