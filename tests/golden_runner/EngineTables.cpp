#include <map>
#include <memory>
#include <string>

#include "BoatStateRow.h"
#include "Golden.h"
#include "simulation/BoatSimulationEngine.h"
#include "support/HandCrankedLoop.h"
#include "support/ScriptedRandom.h"

namespace tidewright::golden {

using namespace simulation;

namespace {

ManualTargets manualTargets(const Row& operation) {
    return {.sog = operation.number("a"),
            .heading = operation.number("b"),
            .windSpeed = operation.number("c"),
            .windAngle = operation.number("d"),
            .depth = operation.number("e"),
            .waterTemp = operation.number("f")};
}

std::uint64_t hexNumber(const std::string& text) {
    return std::stoull(text, nullptr, 16);
}

/// An engine whose clock and chance come from the tables.
class Bench {
public:
    explicit Bench(const Row& run) {
        random_.seeds.push_back(run.hex("constructionSeed"));
        for (const std::string& seed : split(run.text("startSeeds"), '+'))
            random_.seeds.push_back(hexNumber(seed));
    }

    void apply(const Row& operation) {
        loop_.setClock(instant(operation, "clockNs"));
        const std::string& name = operation.text("op");
        if (name == "construct")
            engine_ = std::make_unique<BoatSimulationEngine>(loop_, random_);
        else if (name == "start")
            engine_->start(operation.integer("a"));
        else if (name == "stop")
            engine_->stop();
        else if (name == "tick")
            engine_->tick();
        else if (name == "mode")
            engine_->mode = controlMode(operation.text("a")).value();
        else if (name == "program")
            engine_->program = sailingProgram(operation.text("a")).value();
        else if (name == "environment")
            engine_->environment = environment(operation, operationEnvironment);
        else if (name == "manual")
            engine_->manual = manualTargets(operation);
        else if (name == "anchor")
            engine_->anchorSettings = anchorSettings(operation);
        else if (name == "trigger")
            operation.expectFlag(
                "b", engine_->triggerManeuver(operation.text("a") == "tack" ? Maneuver::tack
                                                                            : Maneuver::gybe));
        else
            operation.fail("unknown operation " + name);
    }

    void expect(const Row& row) const {
        expectState(row, engine_->state, {.sog = 1e-6, .cog = 2e-3});
        row.expectText("mode", rawValue(engine_->mode));
        row.expectInteger("timestampNs", engine_->state->timestamp.time_since_epoch().count());
        row.expectText("program", rawValue(engine_->program));
        row.expectInteger("legIndex", engine_->sailing().legIndex);
        row.expectFlag("needsResync", engine_->sailing().needsResync);
        row.expectFlag("anchorPresent", engine_->anchor().has_value());
        row.expectHex("rngState", engine_->sailing().rng.state);
        row.expectText("autoStatus", engine_->autoStatus.get());
    }

private:
    HandCrankedLoop loop_;
    ScriptedRandom random_;
    std::unique_ptr<BoatSimulationEngine> engine_;
};

}  // namespace

void compareEngine(Tables& tables) {
    for (const Row& run : tables["engine_runs"].rows()) {
        std::map<std::int64_t, Row> expected;
        for (const Row& row : tables["engine_rows"].rowsWhere("run", run.text("run")))
            expected.emplace(row.integer("index"), row);
        Bench bench(run);
        for (const Row& operation : tables["engine_script"].rowsWhere("run", run.text("run"))) {
            bench.apply(operation);
            if (const auto row = expected.find(operation.integer("index")); row != expected.end())
                bench.expect(row->second);
        }
    }
}

}  // namespace tidewright::golden
