#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "BoatStateRow.h"
#include "Golden.h"
#include "platform/Check.h"
#include "simulation/SailingSimulation.h"
#include "simulation/SailingStatus.h"

namespace tidewright::golden {

using namespace simulation;

namespace {

constexpr double fine = 1e-9;

PointOfSail pointOfSail(const std::string& name) {
    static const std::map<std::string, PointOfSail> sails{{"beat", PointOfSail::beat},
                                                          {"closeReach", PointOfSail::closeReach},
                                                          {"beamReach", PointOfSail::beamReach},
                                                          {"broadReach", PointOfSail::broadReach},
                                                          {"run", PointOfSail::run}};
    return sails.at(name);
}

std::string nameOf(PointOfSail sail) {
    for (const char* name : {"beat", "closeReach", "beamReach", "broadReach", "run"})
        if (pointOfSail(name) == sail) return name;
    platform::fail("a point of sail without a name");
}

std::string event(std::int64_t step, std::string_view what, std::string_view detail) {
    return fmt::format("{} {} {}", step, what, detail);
}

/// One run of the tables: a simulation that is stepped, with what happened to it written down.
class Run {
public:
    explicit Run(const Row& row)
        : sailing_(sailingProgram(row.text("program")).value(), environment(row, namedEnvironment),
                   row.hex("seed")) {
        sailing_.prime(state_, {});
    }

    void apply(const Row& operation);
    void step(std::int64_t number);
    void expect(const Row& row) const;

    const std::vector<std::string>& events() const { return events_; }

private:
    void trigger(const Row& operation);
    void reject(const Row& operation);
    void noteEvents(std::int64_t number, const SailingSimulation& before);

    BoatState state_ = BoatState::starting({});
    SailingSimulation sailing_;
    double dt_ = 0.1;
    std::vector<std::string> events_;
};

void Run::apply(const Row& operation) {
    const std::string& name = operation.text("op");
    if (name == "trigger") {
        trigger(operation);
    } else if (name == "program") {
        const auto program = sailingProgram(operation.text("a")).value();
        if (program == sailing_.program) return;
        sailing_.program = program;
        sailing_.legIndex = 0;
        sailing_.loadLeg(0);
    } else if (name == "environment") {
        sailing_.setEnvironment(environment(operation, operationEnvironment));
    } else if (name == "resync") {
        state_.latitude = operation.number("a");
        state_.longitude = operation.number("b");
        state_.heading = operation.number("c");
        state_.stw = operation.number("d");
        sailing_.needsResync = true;
    } else if (name == "reject") {
        reject(operation);
    } else if (name == "dt") {
        dt_ = operation.number("a");
    } else {
        operation.fail("unknown operation " + name);
    }
}

void Run::trigger(const Row& operation) {
    const std::string& name = operation.text("a");
    const bool accepted =
        sailing_.triggerManeuver(name == "tack" ? Maneuver::tack : Maneuver::gybe);
    operation.expectFlag("b", accepted);
    events_.push_back(event(operation.integer("beforeStep"), "trigger",
                            name + (accepted ? " accepted" : " refused")));
}

void Run::reject(const Row& operation) {
    const BoatState before = state_;
    const std::string status = sailing_.statusLine();
    const double time = sailing_.time;
    sailing_.step(operation.number("a"), state_, {});
    if (state_ != before || sailing_.time != time || sailing_.statusLine() != status)
        operation.fail("a rejected step changed something");
}

void Run::step(std::int64_t number) {
    const SailingSimulation before = sailing_;
    sailing_.step(dt_, state_, {});
    noteEvents(number, before);
}

void Run::noteEvents(std::int64_t number, const SailingSimulation& before) {
    const bool legLoaded = sailing_.legIndex != before.legIndex;
    if (legLoaded)
        events_.push_back(event(
            number, "leg", fmt::format("{} {}", sailing_.legIndex, nameOf(sailing_.leg.sail))));
    if (!legLoaded && before.boardElapsed > 0 && sailing_.boardElapsed == 0)
        events_.push_back(event(number, "board", ""));
    if (before.maneuvering && !sailing_.maneuvering)
        events_.push_back(event(number, "maneuverEnd", sailing_.side > 0 ? "1" : "-1"));
    if (sailing_.tackCount > before.tackCount)
        events_.push_back(event(number, "tack", std::to_string(sailing_.tackCount)));
    if (sailing_.gybeCount > before.gybeCount)
        events_.push_back(event(number, "gybe", std::to_string(sailing_.gybeCount)));
    if (sailing_.stepTarget != before.stepTarget) events_.push_back(event(number, "crewStep", ""));
}

void Run::expect(const Row& row) const {
    expectState(row, state_);
    row.expectNear("time", sailing_.time, fine);
    row.expectNear("side", sailing_.side, 0);
    row.expectFlag("maneuvering", sailing_.maneuvering);
    row.expectNear("theta", sailing_.theta, fine);
    row.expectNear("thetaTarget", sailing_.thetaTarget, fine);
    row.expectInteger("legIndex", sailing_.legIndex);
    row.expectNear("legElapsed", sailing_.legElapsed, fine);
    row.expectNear("legDuration", sailing_.leg.duration, fine);
    row.expectNear("boardElapsed", sailing_.boardElapsed, fine);
    if (row.has("boardLength") != sailing_.boardLength.has_value())
        row.fail("boardLength: present on one side only");
    else if (sailing_.boardLength)
        row.expectNear("boardLength", *sailing_.boardLength, fine);
    row.expectInteger("tackCount", sailing_.tackCount);
    row.expectInteger("gybeCount", sailing_.gybeCount);
    row.expectNear("stepTarget", sailing_.stepTarget, fine);
    row.expectNear("stepSmooth", sailing_.stepSmooth, fine);
    row.expectNear("windSpeed", sailing_.wind.speed, fine);
    row.expectAngle("windDirection", sailing_.wind.direction, fine);
    row.expectHex("rngState", sailing_.rng.state);
    row.expectText("statusLine", sailing_.statusLine());
}

void expectEvents(Table& table, std::vector<std::string> actual) {
    std::vector<std::string> expected;
    const std::vector<Row>& rows = table.rows();
    for (const Row& row : rows)
        expected.push_back(event(row.integer("step"), row.text("event"), row.text("detail")));
    std::ranges::sort(expected);
    std::ranges::sort(actual);
    std::vector<std::string> different;
    std::ranges::set_symmetric_difference(expected, actual, std::back_inserter(different));
    for (const std::string& each : different) rows.front().fail("on one side only: " + each);
}

void compareRun(Tables& tables, const Row& run) {
    const std::string prefix = fmt::format("sailing_{:02}_", run.integer("run"));
    std::multimap<std::int64_t, Row> operations;
    if (Table* table = tables.find(prefix + "ops"))
        for (const Row& row : table->rows()) operations.emplace(row.integer("beforeStep"), row);
    std::multimap<std::int64_t, Row> rows;
    for (const Row& row : tables[prefix + "rows"].rows()) rows.emplace(row.integer("step"), row);

    Run sailing(run);
    for (std::int64_t step = 0; step <= run.integer("steps"); ++step) {
        const auto [firstOperation, lastOperation] = operations.equal_range(step);
        std::for_each(firstOperation, lastOperation,
                      [&](const auto& each) { sailing.apply(each.second); });
        if (step > 0) sailing.step(step);
        const auto [firstRow, lastRow] = rows.equal_range(step);
        std::for_each(firstRow, lastRow, [&](const auto& each) { sailing.expect(each.second); });
    }
    if (!rows.empty() && rows.rbegin()->first > run.integer("steps"))
        rows.rbegin()->second.fail("lies beyond the end of the run");
    expectEvents(tables[prefix + "events"], sailing.events());
}

void compareRequests(Table& table) {
    for (const Row& row : table.rows()) {
        SailingSimulation sailing(SailingProgram::sequence, {}, 1);
        sailing.leg.sail = pointOfSail(row.text("sail"));
        sailing.wind.speed = row.number("windSpeed");
        sailing.side = row.number("side");
        sailing.theta = row.number("theta");
        sailing.thetaTarget = 43;
        std::optional<Maneuver> forced;
        if (row.has("forced"))
            forced = row.text("forced") == "tack" ? Maneuver::tack : Maneuver::gybe;
        sailing.request(row.number("requestedSide"), forced);
        row.expectFlag("maneuvering", sailing.maneuvering);
        row.expectClose("thetaTarget", sailing.thetaTarget);
        row.expectClose("thetaAfter", sailing.theta);
        if (sailing.maneuvering) row.expectFlag("isTack", sailing.maneuverIsTack);
        row.expectInteger("tackCount", sailing.tackCount);
        row.expectInteger("gybeCount", sailing.gybeCount);
    }
}

void comparePreferredSides(Table& table) {
    for (const Row& row : table.rows()) {
        SailingSimulation sailing(SailingProgram::sequence, {}, 1);
        sailing.leg.sail = pointOfSail(row.text("sail"));
        sailing.wind.speed = row.number("windSpeed");
        sailing.wind.direction = row.number("windDirection");
        sailing.home = {row.number("homeLatitude"), row.number("homeLongitude")};
        BoatState state;
        state.latitude = row.number("latitude");
        state.longitude = row.number("longitude");
        row.expectNear("preferred", sailing.preferredSide(state).value_or(0), 0);
    }
}

}  // namespace

void compareSailing(Tables& tables) {
    for (const Row& run : tables["sailing_runs"].rows()) compareRun(tables, run);
    for (const Row& row : tables["sailing_clock"].rows())
        row.expectText("text", clock(row.number("seconds")));
    compareRequests(tables["sailing_request"]);
    comparePreferredSides(tables["sailing_preferred_side"]);
}

}  // namespace tidewright::golden
