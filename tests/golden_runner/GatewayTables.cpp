#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "BoatStateRow.h"
#include "Golden.h"
#include "gateway/Assembly.h"
#include "support/HandCrankedLoop.h"
#include "support/NumberedClients.h"
#include "support/PretendHost.h"
#include "support/ScriptedRandom.h"

namespace tidewright::golden {

using namespace gateway;

namespace {

/// What scripts call the settings that the tables call so.
const std::map<std::string, std::string> settingNames{
    {"tcpEnabled", "network.tcp"},
    {"udpEnabled", "network.udp"},
    {"tcpPort", "network.tcp-port"},
    {"udpPort", "network.udp-port"},
    {"gpsTalker", "network.talker"},
    {"gps", "sensors.gps"},
    {"heading", "sensors.heading"},
    {"boatSpeed", "sensors.boat-speed"},
    {"wind", "sensors.wind"},
    {"depth", "sensors.depth"},
    {"temperature", "sensors.temperature"},
    {"ais", "sensors.ais"},
    {"positionHz", "rates.position"},
    {"courseSpeedHz", "rates.course-speed"},
    {"headingHz", "rates.heading"},
    {"boatSpeedHz", "rates.boat-speed"},
    {"windHz", "rates.wind"},
    {"depthHz", "rates.depth"},
    {"temperatureHz", "rates.temperature"},
    {"aisHz", "rates.ais"},
    {"aisTargetCount", "ais.count"},
    {"stopStream", "faults.stop-stream"},
    {"disableGPS", "faults.no-gps"},
    {"disableWind", "faults.no-wind"},
    {"disableAIS", "faults.no-ais"},
    {"invalidChecksum", "faults.bad-checksum"},
    {"latencyMs", "faults.latency"},
    {"packetLossPercent", "faults.loss"},
    {"randomDisconnections", "faults.disconnections"}};

/// Writes the setting that the tables call `name` from `column`. The tables go beyond the ranges
/// that people may choose from, and so does this.
void assign(const Settings& settings, const std::string& name, const Row& row,
            std::string_view column) {
    const auto known = settingNames.find(name);
    if (known == settingNames.end()) return row.fail("unknown setting " + name);
    const Setting& setting = settings.at(known->second);
    switch (setting.kind) {
        case SettingKind::flag:
            return setting.write(row.flag(column));
        case SettingKind::integer:
            return setting.write(row.integer(column));
        case SettingKind::number:
            return setting.write(row.number(column));
        default:
            return setting.write(row.text(column));
    }
}

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
            assign(assembly_.settings, operation.text("a"), operation, "b");
        else if (name == "preset")
            assembly_.settings.at("network.preset").write(operation.text("a"));
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
        if (assembly_.config.tcpPort == 0)
            host_.tcp->startFailure = {"nmea.tcp", 1, "Port TCP invalide"};
        else
            host_.tcp->startFailure.reset();
        gateway_.start();
        assembly_.engine.state = boat_;
        assembly_.engine.traffic.targets = vessels_;
    }

    simulation::BoatState boat_;
    std::vector<simulation::AISTarget> vessels_;
    HandCrankedLoop loop_;
    ScriptedRandom random_;
    PretendHost host_;
    Assembly assembly_{host_.host(loop_, random_)};
    GatewaySimulator& gateway_ = assembly_.gateway;
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
    Assembly assembly{host.host(loop, random)};
    simulation::BoatSimulationEngine& engine = assembly.engine;
    SimulationConfig& config = assembly.config;
    GatewaySimulator& gateway = assembly.gateway;
};

/// The families of which `sentences` holds the first, in order, joined with "+".
std::string familiesIn(const std::vector<std::string>& sentences) {
    static const std::map<std::string, SentenceKind> firsts{
        {"RMC", SentenceKind::position},    {"VTG", SentenceKind::courseSpeed},
        {"HDT", SentenceKind::heading},     {"VHW", SentenceKind::boatSpeed},
        {"MWV", SentenceKind::wind},        {"DBT", SentenceKind::depth},
        {"MTW", SentenceKind::temperature}, {"VDM", SentenceKind::ais}};
    std::vector<std::string_view> names;
    for (const std::string& each : sentences) {
        const auto first = firsts.find(each.substr(3, 3));
        if (first == firsts.end()) continue;
        const std::string_view name = family(first->second).name;
        if (names.empty() || names.back() != name) names.push_back(name);
    }
    return fmt::format("{}", fmt::join(names, "+"));
}

void compareSchedules(Tables& tables) {
    for (const Row& each : tables["schedule_cases"].rows()) {
        PlainBench bench;
        for (const auto& [name, setting] : settingNames)
            if (setting.starts_with("rates.") || setting.starts_with("sensors."))
                assign(bench.assembly.settings, name, each, name);

        std::vector<std::string_view> scheduled;
        const EmissionSchedule schedule(bench.config);
        for (const auto& entry : schedule.entries()) scheduled.push_back(family(entry.kind).name);
        each.expectText("scheduled", fmt::format("{}", fmt::join(scheduled, "+")));

        bench.gateway.start();
        bench.engine.traffic.targets.resize(1);
        for (const Row& pump : tables["schedule_pumps"].rowsWhere("case", each.text("case"))) {
            bench.loop.setClock(instant(pump, "instantNs"));
            bench.assembly.faults.stopStream = pump.flag("stopStream");
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
        bench->assembly.faults.disableAIS = row.flag("disableAIS");
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
