#include "app/Option.h"

#include <algorithm>
#include <functional>
#include <iterator>

#include "app/CommandLine.h"
#include "platform/TimeText.h"
#include "simulation/SeededRandom.h"

namespace tidewright::app {

namespace {

using gateway::GatewayPreset;
using gateway::SimulationConfig;
using simulation::BoatSimulationEngine;
using simulation::SailingEnvironment;

constexpr double lowestPerformance = 0.7;
constexpr double highestPerformance = 1.15;

const GatewayPreset* preset(std::string_view id) {
    const auto found = std::ranges::find(GatewayPreset::all, id, &GatewayPreset::id);
    return found == GatewayPreset::all.end() ? nullptr : &*found;
}

std::vector<std::string> presetIds() {
    std::vector<std::string> ids;
    for (const GatewayPreset& each : GatewayPreset::all) ids.emplace_back(each.id);
    return ids;
}

std::vector<std::string> programNames() {
    std::vector<std::string> names;
    for (const auto each : simulation::allSailingPrograms) names.emplace_back(rawValue(each));
    return names;
}

void changeEnvironment(BoatSimulationEngine& engine,
                       const std::function<void(SailingEnvironment&)>& change) {
    SailingEnvironment environment = engine.environment;
    change(environment);
    engine.environment = environment;
}

bool isPort(const std::string& text) {
    return CommandLine::port(text).has_value();
}

void applyWindRange(const std::string& text, SimulationConfig&, BoatSimulationEngine& engine) {
    const auto range = *CommandLine::windRange(text);
    changeEnvironment(engine, [range](SailingEnvironment& environment) {
        environment.windPreset = simulation::WindPreset::custom;
        environment.customMin = range.low;
        environment.customMax = range.high;
    });
}

void applyPerformance(const std::string& text, SimulationConfig&, BoatSimulationEngine& engine) {
    const double share = *CommandLine::decimal(text) / 100;
    changeEnvironment(engine, [share](SailingEnvironment& environment) {
        environment.performance = std::clamp(share, lowestPerformance, highestPerformance);
    });
}

std::vector<Option> networkOptions() {
    return {
        {.name = "--preset",
         .valueName = {"NOM", "NAME"},
         .effect = {"imite les ports et l'identifiant GPS d'une passerelle",
                    "imitates a gateway's ports and GPS talker"},
         .otherwise = "digital-yacht",
         .words = presetIds(),
         .reads = [](const std::string& text) { return preset(text) != nullptr; },
         .readable = "un préréglage",
         .apply = [](const std::string& text, SimulationConfig& config,
                     BoatSimulationEngine&) { config.apply(*preset(text)); }},
        {.name = "--tcp-port",
         .valueName = {"PORT", "PORT"},
         .effect = {"port TCP, 1 à 65535", "TCP port, 1 to 65535"},
         .otherwise = "2000",
         .reads = isPort,
         .readable = "un port, de 0 à 65535",
         .apply = [](const std::string& text, SimulationConfig& config,
                     BoatSimulationEngine&) { config.tcpPort = *CommandLine::port(text); }},
        {.name = "--udp-port",
         .valueName = {"PORT", "PORT"},
         .effect = {"port UDP, 0 à 65535", "UDP port, 0 to 65535"},
         .otherwise = "2000",
         .reads = isPort,
         .readable = "un port, de 0 à 65535",
         .apply = [](const std::string& text, SimulationConfig& config,
                     BoatSimulationEngine&) { config.udpPort = *CommandLine::port(text); }},
        {.name = "--no-tcp",
         .effect = {"coupe la sortie TCP", "switches the TCP output off"},
         .apply = [](const std::string&, SimulationConfig& config,
                     BoatSimulationEngine&) { config.tcpEnabled = false; }},
        {.name = "--no-udp",
         .effect = {"coupe la sortie UDP", "switches the UDP output off"},
         .apply = [](const std::string&, SimulationConfig& config,
                     BoatSimulationEngine&) { config.udpEnabled = false; }},
        {.name = "--ais",
         .valueName = {"NOMBRE", "COUNT"},
         .effect = {"navires AIS simulés", "AIS vessels"},
         .otherwise = "5",
         .reads = [](const std::string& text) { return CommandLine::integer(text).has_value(); },
         .readable = "un nombre entier",
         .apply =
             [](const std::string& text, SimulationConfig& config, BoatSimulationEngine&) {
                 config.aisTargetCount = *CommandLine::integer(text);
             }},
    };
}

std::vector<Option> sailingOptions() {
    return {
        {.name = "--program",
         .valueName = {"NOM", "NAME"},
         .effect = {"programme de navigation", "what to sail"},
         .otherwise = "sequence",
         .words = programNames(),
         .reads =
             [](const std::string& text) { return simulation::sailingProgram(text).has_value(); },
         .readable = "un programme",
         .apply =
             [](const std::string& text, SimulationConfig&, BoatSimulationEngine& engine) {
                 engine.program = *simulation::sailingProgram(text);
             }},
        {.name = "--wind-range",
         .valueName = {"MIN-MAX", "LOW-HIGH"},
         .effect = {"vent en nœuds, par exemple 8-16", "wind in knots, as in 8-16"},
         .otherwise = "10-16",
         .reads = [](const std::string& text) { return CommandLine::windRange(text).has_value(); },
         .readable = "deux nombres, le premier le plus petit, comme 8-16",
         .apply = applyWindRange},
        {.name = "--polar",
         .valueName = {"POURCENT", "PERCENT"},
         .effect = {"part de la polaire atteinte, ramenée entre 70 et 115",
                    "boat speed against her polar, clamped to 70 to 115"},
         .otherwise = "100",
         .reads = [](const std::string& text) { return CommandLine::decimal(text).has_value(); },
         .readable = "un nombre",
         .apply = applyPerformance},
        {.name = "--no-steps",
         .effect = {"sans les paliers d'équipage", "no ups and downs of the crew"},
         .apply =
             [](const std::string&, SimulationConfig&, BoatSimulationEngine& engine) {
                 changeEnvironment(engine,
                                   [](SailingEnvironment& each) { each.crewSteps = false; });
             }},
    };
}

bool isAnything(const std::string& text) {
    return !text.empty();
}

std::vector<Option> clockOptions() {
    return {
        {.name = "--seed",
         .valueName = {"NOMBRE", "NUMBER"},
         .effect = {"graine du hasard, pour refaire la même simulation",
                    "all chance of the run, to have it again"},
         .isStrict = true,
         .reads = [](const std::string& text) { return simulation::parseSeed(text).has_value(); },
         .readable = "un nombre entier de 0 à 18446744073709551615"},
        {.name = "--start",
         .valueName = {"INSTANT", "TIME"},
         .effect = {"ce que montre l'horloge au départ, en UTC",
                    "what the clock shows at the start, UTC"},
         .isStrict = true,
         .reads = [](const std::string& text) { return platform::parseUtc(text).has_value(); },
         .readable = "un instant comme 2026-06-01T12:00:00Z"},
        {.name = "--speed",
         .valueName = {"FACTEUR", "FACTOR"},
         .effect = {"vitesse du temps, 0.1 à 1000, ou max",
                    "how fast time passes, 0.1 to 1000, or max"},
         .otherwise = "1",
         .isStrict = true,
         .reads = [](const std::string& text) { return platform::parseSpeed(text).has_value(); },
         .readable = "un nombre de 0.1 à 1000, ou max"},
        {.name = "--duration",
         .valueName = {"DURÉE", "TIME"},
         .effect = {"s'arrête après ce temps simulé, par exemple 1h30m",
                    "ends after that time of the run, as in 1h30m"},
         .isStrict = true,
         .reads = [](const std::string& text) { return platform::parseDuration(text).has_value(); },
         .readable = "une durée comme 90s, 10m ou 1h30m"},
    };
}

std::vector<Option> fileOptions() {
    return {
        {.name = "--output",
         .valueName = {"FICHIER", "FILE"},
         .effect = {"les phrases vont aussi dans ce fichier (- : sortie standard)",
                    "the sentences also go into FILE (-: standard output)"},
         .takesFile = true,
         .isStrict = true,
         .reads = isAnything,
         .readable = "un fichier"},
        {.name = "--free-port",
         .effect = {"TCP sur un port libre, UDP coupé", "TCP on a free port, UDP off"},
         .isStrict = true},
        {.name = "--replay",
         .valueName = {"FICHIER", "FILE"},
         .effect = {"rejoue ce fichier au lieu du bateau (- : entrée standard)",
                    "replays FILE instead of the boat (-: standard input)"},
         .takesFile = true,
         .isStrict = true,
         .reads = isAnything,
         .readable = "un fichier"},
        {.name = "--replay-loop",
         .effect = {"rejoue le fichier sans fin", "replays the file over and over"},
         .isStrict = true},
        {.name = "--scenario",
         .valueName = {"FICHIER", "FILE"},
         .effect = {"joue ce scénario", "plays this scenario"},
         .takesFile = true,
         .isStrict = true,
         .reads = isAnything,
         .readable = "un fichier"},
    };
}

std::vector<Option> everyOption() {
    std::vector<Option> all{
        {.name = "--headless",
         .effect = {"émet sans fenêtre, jusqu'à Ctrl-C", "sends without a window, until Ctrl-C"}}};
    std::ranges::move(networkOptions(), std::back_inserter(all));
    std::ranges::move(sailingOptions(), std::back_inserter(all));
    all.push_back(
        {.name = "--set",
         .valueName = {"RÉGLAGE=VALEUR", "NAME=VALUE"},
         .effect = {"un réglage, voir --settings ; peut être répétée",
                    "any setting, see --settings; may be repeated"},
         .isStrict = true,
         .mayRepeat = true,
         .reads = [](const std::string& text) { return text.find('=') != std::string::npos; },
         .readable = "RÉGLAGE=VALEUR"});
    std::ranges::move(clockOptions(), std::back_inserter(all));
    std::ranges::move(fileOptions(), std::back_inserter(all));
    all.push_back({.name = "--settings",
                   .effect = {"la liste des réglages", "the list of the settings"},
                   .isQuestion = true,
                   .isStrict = true});
    all.push_back(
        {.name = "--help", .effect = {"cette aide", "a summary in French"}, .isQuestion = true});
    all.push_back(
        {.name = "--version", .effect = {"la version", "the version"}, .isQuestion = true});
    return all;
}

}  // namespace

const std::vector<Option>& allOptions() {
    static const std::vector<Option> all = everyOption();
    return all;
}

const Option* option(std::string_view name) {
    const auto found = std::ranges::find(allOptions(), name, &Option::name);
    return found == allOptions().end() ? nullptr : &*found;
}

}  // namespace tidewright::app
