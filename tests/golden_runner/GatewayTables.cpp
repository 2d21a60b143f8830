#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "BoatStateRow.h"
#include "Golden.h"
#include "gateway/GatewaySimulator.h"
#include "support/HandCrankedLoop.h"
#include "support/NumberedClients.h"
#include "support/PretendHost.h"
#include "support/ScriptedRandom.h"

namespace tidewright::golden {

using namespace gateway;

namespace {

/// The settings by the names that the tables give them.
struct Setters {
    std::map<std::string, platform::Published<bool>*> flags;
    std::map<std::string, platform::Published<double>*> rates;
    std::map<std::string, platform::Published<std::uint16_t>*> ports;
    std::map<std::string, platform::Published<std::int64_t>*> integers;
    std::map<std::string, platform::Published<std::string>*> texts;

    Setters(SimulationConfig& config, FailureInjection& failure)
        : flags{{"tcpEnabled", &config.tcpEnabled},
                {"udpEnabled", &config.udpEnabled},
                {"gps", &config.gps},
                {"heading", &config.heading},
                {"boatSpeed", &config.boatSpeed},
                {"wind", &config.wind},
                {"depth", &config.depth},
                {"temperature", &config.temperature},
                {"ais", &config.ais},
                {"stopStream", &failure.stopStream},
                {"disableGPS", &failure.disableGPS},
                {"disableWind", &failure.disableWind},
                {"disableAIS", &failure.disableAIS},
                {"invalidChecksum", &failure.invalidChecksum},
                {"randomDisconnections", &failure.randomDisconnections}},
          rates{{"positionHz", &config.positionHz},
                {"courseSpeedHz", &config.courseSpeedHz},
                {"headingHz", &config.headingHz},
                {"boatSpeedHz", &config.boatSpeedHz},
                {"windHz", &config.windHz},
                {"depthHz", &config.depthHz},
                {"temperatureHz", &config.temperatureHz},
                {"aisHz", &config.aisHz}},
          ports{{"tcpPort", &config.tcpPort}, {"udpPort", &config.udpPort}},
          integers{{"aisTargetCount", &config.aisTargetCount},
                   {"latencyMs", &failure.latencyMs},
                   {"packetLossPercent", &failure.packetLossPercent}},
          texts{{"gpsTalker", &config.gpsTalker}} {}

    /// Assigns the setting called `name` from `column`.
    void assign(const std::string& name, const Row& row, std::string_view column) const {
        if (const auto flag = flags.find(name); flag != flags.end())
            *flag->second = row.flag(column);
        else if (const auto rate = rates.find(name); rate != rates.end())
            *rate->second = row.number(column);
        else if (const auto port = ports.find(name); port != ports.end())
            *port->second = static_cast<std::uint16_t>(row.integer(column));
        else if (const auto integer = integers.find(name); integer != integers.end())
            *integer->second = row.integer(column);
        else if (const auto text = texts.find(name); text != texts.end())
            *text->second = row.text(column);
        else
            row.fail("unknown setting " + name);
    }
};

/// A gateway on the tables' clock, with their boat and vessels, none of which ever move.
class Bench {
public:
    Bench(simulation::BoatState boat, std::vector<simulation::AISTarget> vessels,
          const std::vector<Row>& lossDraws)
        : boat_(boat), vessels_(std::move(vessels)) {
        for (const Row& row : lossDraws) random_.wholeNumbers[100].push_back(row.integer("draw"));
    }

    void apply(const Row& operation) {
        loop_.setClock(instant(operation, "instantNs"));
        const std::string& name = operation.text("name");
        if (name == "rate" || name == "config" || name == "fault")
            setters_.assign(operation.text("a"), operation, "b");
        else if (name == "preset")
            config_.apply(
                *std::ranges::find(GatewayPreset::all, operation.text("a"), &GatewayPreset::id));
        else if (name == "clients")
            host_.tcp->onClientsChanged(network::numberedClients(split(operation.text("a"), ',')));
        else if (name == "pause")
            gateway_.consolePaused = operation.flag("a");
        else if (name == "start")
            start();
        else if (name == "stop")
            gateway_.stop();
        else if (name == "pump")
            gateway_.pump();
        else if (name == "statistics")
            gateway_.statisticsTick();
        else if (name == "disconnectCheck")
            gateway_.maybeRandomDisconnect();
        else if (name == "dropClients")
            gateway_.dropClients();
        else if (name == "listenFailed")
            host_.tcp->onFailed("Address already in use");
        else if (name != "idle")
            operation.fail("unknown operation " + name);
    }

    void expectStatus(const Row& row) const {
        row.expectFlag("isRunning", gateway_.isRunning);
        row.expectInteger("messagesPerSecond", gateway_.messagesPerSecond);
        row.expectNear("kilobytesPerSecond", gateway_.kilobytesPerSecond, 1e-12);
        row.expectInteger("sentAccumulator", gateway_.throughput().sentAccumulator());
        row.expectInteger("byteAccumulator", gateway_.throughput().byteAccumulator());
        row.expectInteger("aisStaticCountdown", gateway_.aisReports().staticCountdown());
        row.expectInteger("aisSequence", gateway_.aisReports().sequence());
        row.expectInteger("consoleCount", std::ssize(gateway_.consoleLines()));
        row.expectInteger("dropCalls", host_.tcp->dropAllClientsCalls);
        row.expectText("lastError", gateway_.lastError->value_or(""));
    }

    /// The console lines since the last call.
    std::vector<ConsoleLine> newLines() {
        const auto fresh = static_cast<std::ptrdiff_t>(gateway_.consoleAppendedCount() - seen_);
        seen_ = gateway_.consoleAppendedCount();
        return {gateway_.consoleLines().end() - fresh, gateway_.consoleLines().end()};
    }

private:
    void start() {
        if (config_.tcpPort == 0)
            host_.tcp->startFailure = {"nmea.tcp", 1, "Port TCP invalide"};
        else
            host_.tcp->startFailure.reset();
        gateway_.start();
        engine_.state = boat_;
        engine_.traffic.targets = vessels_;
    }

    simulation::BoatState boat_;
    std::vector<simulation::AISTarget> vessels_;
    HandCrankedLoop loop_;
    ScriptedRandom random_;
    PretendHost host_;
    simulation::BoatSimulationEngine engine_{loop_, random_};
    SimulationConfig config_;
    FailureInjection failure_;
    GatewaySimulator gateway_{engine_, config_, failure_, host_.host(loop_, random_)};
    Setters setters_{config_, failure_};
    std::uint64_t seen_ = 0;
};

void expectLines(const std::vector<Row>& expected, const std::vector<ConsoleLine>& actual,
                 const Row& operation) {
    if (expected.size() != actual.size())
        operation.fail(
            fmt::format("{} console lines instead of {}", actual.size(), expected.size()));
    for (std::size_t i = 0; i < std::min(expected.size(), actual.size()); ++i) {
        expected[i].expectText("transport", actual[i].transport);
        expected[i].expectText("time", actual[i].time);
        expected[i].expectText("text", actual[i].text);
    }
}

void compareRun(Tables& tables, const Row& state) {
    const std::string& run = state.text("run");
    std::vector<simulation::AISTarget> vessels;
    for (const Row& row : tables["gateway_targets"].rowsWhere("run", run))
        vessels.push_back(aisTarget(row));
    std::map<std::int64_t, std::vector<Row>> output;
    for (const Row& row : tables["gateway_output"].rowsWhere("run", run))
        output[row.integer("op")].push_back(row);
    std::map<std::int64_t, Row> status;
    for (const Row& row : tables["gateway_status"].rowsWhere("run", run))
        status.emplace(row.integer("op"), row);

    Bench bench(boatState(state), vessels, tables["gateway_loss_draws"].rowsWhere("run", run));
    for (const Row& operation : tables["gateway_ops"].rowsWhere("run", run)) {
        bench.apply(operation);
        const std::int64_t number = operation.integer("op");
        expectLines(output[number], bench.newLines(), operation);
        if (const auto row = status.find(number); row != status.end())
            bench.expectStatus(row->second);
    }
}

/// A gateway whose timers never ring.
struct PlainBench {
    HandCrankedLoop loop;
    ScriptedRandom random;
    PretendHost host;
    simulation::BoatSimulationEngine engine{loop, random};
    SimulationConfig config;
    FailureInjection failure;
    GatewaySimulator gateway{engine, config, failure, host.host(loop, random)};
};

/// The families of which `sentences` holds the first, in order, joined with "+".
std::string familiesIn(const std::vector<std::string>& sentences) {
    static const std::map<std::string, SentenceKind> families{
        {"RMC", SentenceKind::position},    {"VTG", SentenceKind::courseSpeed},
        {"HDT", SentenceKind::heading},     {"VHW", SentenceKind::boatSpeed},
        {"MWV", SentenceKind::wind},        {"DBT", SentenceKind::depth},
        {"MTW", SentenceKind::temperature}, {"VDM", SentenceKind::ais}};
    std::vector<std::string_view> names;
    for (const std::string& each : sentences) {
        const auto family = families.find(each.substr(3, 3));
        if (family == families.end()) continue;
        const std::string_view name = rawValue(family->second);
        if (names.empty() || names.back() != name) names.push_back(name);
    }
    return fmt::format("{}", fmt::join(names, "+"));
}

void compareSchedules(Tables& tables) {
    for (const Row& each : tables["schedule_cases"].rows()) {
        PlainBench bench;
        const Setters setters(bench.config, bench.failure);
        for (const auto& [name, rate] : setters.rates) setters.assign(name, each, name);
        for (const char* name :
             {"gps", "heading", "boatSpeed", "wind", "depth", "temperature", "ais"})
            setters.assign(name, each, name);

        std::vector<std::string_view> scheduled;
        const EmissionSchedule schedule(bench.config);
        for (const auto& entry : schedule.entries()) scheduled.push_back(rawValue(entry.kind));
        each.expectText("scheduled", fmt::format("{}", fmt::join(scheduled, "+")));

        bench.gateway.start();
        bench.engine.traffic.targets.resize(1);
        for (const Row& pump : tables["schedule_pumps"].rowsWhere("case", each.text("case"))) {
            bench.loop.setClock(instant(pump, "instantNs"));
            bench.failure.stopStream = pump.flag("stopStream");
            bench.gateway.pump();
            pump.expectText("fired", familiesIn(bench.host.tcp->takeSentences()));
        }
    }
}

/// The sequence identifiers of the static reports' first fragments, joined with "+".
std::string staticSequenceIds(const std::vector<std::string>& sentences) {
    constexpr std::string_view firstFragment = "!AIVDM,2,1,";
    std::vector<char> ids;
    for (const std::string& each : sentences)
        if (each.starts_with(firstFragment)) ids.push_back(each[firstFragment.size()]);
    return fmt::format("{}", fmt::join(ids, "+"));
}

/// Sends nothing but AIS, at every pump, whatever rate the tables then set.
void startWithAISAlone(PlainBench& bench) {
    for (auto* family : {&bench.config.gps, &bench.config.heading, &bench.config.boatSpeed,
                         &bench.config.wind, &bench.config.depth, &bench.config.temperature})
        *family = false;
    bench.config.aisHz = 20;
    bench.gateway.start();
}

void compareAISRhythm(Table& table) {
    std::unique_ptr<PlainBench> bench;
    std::string series;
    for (const Row& row : table.rows()) {
        if (!bench || row.text("case") != series) {
            series = row.text("case");
            bench = std::make_unique<PlainBench>();
            startWithAISAlone(*bench);
        }
        bench->engine.traffic.targets.resize(static_cast<std::size_t>(row.integer("targets")));
        bench->config.aisHz = row.number("aisHz");
        bench->failure.disableAIS = row.flag("disableAIS");
        bench->loop.setClock(bench->loop.wallClock() + GatewaySimulator::pumpPeriod);
        bench->gateway.pump();

        const auto sentences = bench->host.tcp->takeSentences();
        row.expectInteger("emitted", std::ssize(sentences));
        row.expectInteger("positionReports",
                          std::ranges::count_if(sentences, [](const std::string& each) {
                              return each.starts_with("!AIVDM,1,1,,");
                          }));
        row.expectText("staticSequenceIds", staticSequenceIds(sentences));
        row.expectInteger("countdownAfter", bench->gateway.aisReports().staticCountdown());
    }
}

void compareConsole(Tables& tables) {
    for (const Row& copy : tables["console_copy"].rows()) {
        PlainBench bench;
        for (const Row& row : tables["console"].rowsWhere("case", copy.text("case"))) {
            bench.loop.setClock(instant(row, "instantNs"));
            bench.host.utcOffset = std::chrono::seconds(row.integer("utcOffset"));
            bench.gateway.consolePaused = row.flag("paused");
            bench.gateway.log(row.text("transport"), row.text("text"));
            const auto& lines = bench.gateway.consoleLines();
            row.expectInteger("countAfter", std::ssize(lines));
            row.expectText("lastTime", lines.empty() ? "" : lines.back().time);
            row.expectText("lastText", lines.empty() ? "" : lines.back().text);
        }
        bench.gateway.copyConsole();
        copy.expectText("clipboard", bench.host.clipboard);
    }
}

}  // namespace

void compareGateway(Tables& tables) {
    for (const Row& state : tables["gateway_states"].rows()) compareRun(tables, state);
    compareSchedules(tables);
    compareAISRhythm(tables["ais_rhythm"]);
    compareConsole(tables);
}

}  // namespace tidewright::golden
