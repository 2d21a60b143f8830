#include "gateway/Settings.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <type_traits>

#include "gateway/NearestName.h"
#include "network/InterfaceAddress.h"
#include "platform/Check.h"

namespace tidewright::gateway {

namespace {

using platform::Published;
using simulation::AnchorSettings;
using simulation::BoatSimulationEngine;
using simulation::ManualTargets;
using simulation::SailingEnvironment;

/// Where a value lives: a published property, or a member of a published struct.
template <typename Value>
struct Place {
    std::function<Value()> get;
    std::function<void(Value)> set;
};

template <typename Value>
Place<Value> place(Published<Value>& property) {
    return {[&property] { return property.get(); },
            [&property](Value value) { property = std::move(value); }};
}

template <typename Struct, typename Value>
Place<Value> place(Published<Struct>& property, Value Struct::*member) {
    return {[&property, member] { return property.get().*member; },
            [&property, member](Value value) {
                Struct changed = property;
                changed.*member = std::move(value);
                property = std::move(changed);
            }};
}

/// A setting that holds a `Held`, on a place that holds something that converts to it and back.
template <typename Held, typename Value>
Setting setting(std::string_view name, std::string_view label, SettingKind kind,
                Place<Value> place) {
    return {.name = std::string(name),
            .label = std::string(label),
            .kind = kind,
            .read = [place] { return SettingValue(static_cast<Held>(place.get())); },
            .write =
                [place](const SettingValue& value) {
                    place.set(static_cast<Value>(std::get<Held>(value)));
                }};
}

Setting flag(std::string_view name, std::string_view label, Place<bool> place) {
    return setting<bool>(name, label, SettingKind::flag, std::move(place));
}

template <typename Value>
Setting integer(std::string_view name, std::string_view label, SettingRange range,
                Place<Value> place) {
    Setting made = setting<std::int64_t>(name, label, SettingKind::integer, std::move(place));
    made.range = range;
    return made;
}

Setting number(std::string_view name, std::string_view label, SettingRange range,
               Place<double> place) {
    Setting made = setting<double>(name, label, SettingKind::number, std::move(place));
    made.range = range;
    return made;
}

/// A choice among the values of an enumeration, which says by rawValue() and label() what scripts
/// and people call them.
template <typename All, typename Enumeration>
Setting choice(std::string_view name, std::string_view label, const All& all,
               Place<Enumeration> place) {
    std::vector<SettingChoice> choices;
    for (const Enumeration each : all)
        choices.push_back({std::string(rawValue(each)), std::string(simulation::label(each))});
    return {.name = std::string(name),
            .label = std::string(label),
            .kind = SettingKind::choice,
            .read = [place] { return SettingValue(std::string(rawValue(place.get()))); },
            .write =
                [place, all](const SettingValue& value) {
                    const auto& text = std::get<std::string>(value);
                    place.set(*std::ranges::find_if(
                        all, [&text](Enumeration each) { return rawValue(each) == text; }));
                },
            .choices = std::move(choices)};
}

Setting atNextStart(Setting setting) {
    setting.acts = SettingActs::nextStart;
    return setting;
}

// Network.

std::string nameOf(const GatewayPreset& preset) {
    if (preset.model.empty()) return std::string(preset.manufacturer);
    return fmt::format("{} {}", preset.manufacturer, preset.model);
}

Setting presetChoice(SimulationConfig& config) {
    std::vector<SettingChoice> choices;
    for (const GatewayPreset& each : GatewayPreset::all)
        choices.push_back(
            {std::string(each.id), nameOf(each),
             fmt::format("TCP {} · UDP {} · {}", each.tcpPort, each.udpPort, each.gpsTalker)});
    return {.name = "network.preset",
            .label = "Passerelle simulée",
            .kind = SettingKind::choice,
            .read = [&config] { return SettingValue(std::string(config.preset->id)); },
            .write =
                [&config](const SettingValue& value) {
                    config.apply(*std::ranges::find(
                        GatewayPreset::all, std::get<std::string>(value), &GatewayPreset::id));
                },
            .choices = std::move(choices)};
}

Setting output(std::string_view name, std::string_view label, Place<bool> place) {
    Setting made = atNextStart(flag(name, label, std::move(place)));
    made.isFreeWhileRunning = true;
    return made;
}

Setting talker(SimulationConfig& config) {
    Setting made = setting<std::string>("network.talker", "Identifiant GPS (talker)",
                                        SettingKind::choice, place(config.gpsTalker));
    for (const char* each : {"GP", "GN", "GL", "GA", "II"}) made.choices.push_back({each, each});
    return made;
}

Setting destination(SimulationConfig& config) {
    Setting made = setting<std::string>("network.udp-destination", "Destination UDP",
                                        SettingKind::text, place(config.udpDestination));
    made.choices = {{std::string(udpAutomatic), "Automatique"},
                    {std::string(udpFollowsNetwork), "Suit le réseau"}};
    made.isText = network::isIPv4Address;
    made.otherTexts = "une adresse IPv4";
    return made;
}

std::vector<Setting> networkRows(SimulationConfig& config) {
    const SettingRange ports{.from = 0, .to = 65535};
    return {atNextStart(presetChoice(config)),
            output("network.tcp", "TCP", place(config.tcpEnabled)),
            output("network.udp", "UDP", place(config.udpEnabled)),
            atNextStart(integer("network.tcp-port", "Port TCP", ports, place(config.tcpPort))),
            atNextStart(integer("network.udp-port", "Port UDP", ports, place(config.udpPort))),
            talker(config),
            atNextStart(destination(config)),
            integer("network.client-limit", "Clients TCP au plus (0 : sans limite)",
                    {.from = 0, .to = 1000}, place(config.tcpClientLimit)),
            flag("network.tag-block", "Bloc TAG devant chaque phrase", place(config.tagBlock))};
}

std::vector<Setting> sensorRows(SimulationConfig& config) {
    const std::pair<const char*, std::pair<const char*, Published<bool>*>> sensors[] = {
        {"gps", {"GPS", &config.gps}},
        {"heading", {"Compas", &config.heading}},
        {"boat-speed", {"Loch", &config.boatSpeed}},
        {"wind", {"Girouette-anémomètre", &config.wind}},
        {"depth", {"Sondeur", &config.depth}},
        {"temperature", {"Thermomètre", &config.temperature}},
        {"ais", {"AIS", &config.ais}}};
    std::vector<Setting> rows;
    for (const auto& [name, sensor] : sensors)
        rows.push_back(atNextStart(
            flag(fmt::format("sensors.{}", name), sensor.first, place(*sensor.second))));
    return rows;
}

std::vector<Setting> rateRows(SimulationConfig& config) {
    std::vector<Setting> rows;
    for (const SentenceFamily& each : sentenceFamilies)
        rows.push_back(atNextStart(number(fmt::format("rates.{}", each.row), each.label,
                                          {.from = 0, .to = 20, .step = 0.1, .unit = "Hz"},
                                          place(config.*each.hertz))));
    return rows;
}

Setting fleet(SimulationConfig& config, GatewaySimulator& gateway) {
    Setting made = integer("ais.count", "Cibles AIS", {.from = 0, .to = 100'000, .dialTo = 100},
                           place(config.aisTargetCount));
    made.write = [count = made.write, &gateway](const SettingValue& value) {
        count(value);
        gateway.regenerateAIS();
    };
    made.drag = made.write;
    return made;
}

// The boat and what surrounds her.

std::vector<Setting> boatRows(BoatSimulationEngine& engine) {
    Setting program =
        choice("boat.program", "Programme", simulation::allSailingPrograms, place(engine.program));
    for (std::size_t i = 0; i < program.choices.size(); ++i)
        program.choices[i].detail = description(simulation::allSailingPrograms[i]);
    const auto performance = place(engine.environment, &SailingEnvironment::performance);
    const Place<double> percent{
        [performance] { return std::round(performance.get() * 1e11) / 1e9; },
        [performance](double value) { performance.set(value / 100); }};
    return {
        choice("boat.mode", "Mode", simulation::allControlModes, place(engine.mode)),
        std::move(program),
        number("boat.performance", "% de polaire", {.from = 70, .to = 115, .unit = "%"}, percent),
        flag("boat.crew-steps", "Paliers d'équipage",
             place(engine.environment, &SailingEnvironment::crewSteps)),
        atNextStart(setting<simulation::Position>("boat.home", "Port d'attache",
                                                  SettingKind::position, place(engine.home)))};
}

/// A bound of the custom wind; dragged, it keeps a knot away from the other one, by pushing it.
Setting windBound(std::string_view name, std::string_view label, SettingRange range,
                  Published<SailingEnvironment>& environment, double SailingEnvironment::*bound,
                  double SailingEnvironment::*other, double (*pushed)(double value, double other)) {
    Setting made = number(name, label, range, place(environment, bound));
    made.drag = [&environment, bound, other, pushed](const SettingValue& value) {
        SailingEnvironment changed = environment;
        changed.*bound = std::get<double>(value);
        changed.*other = pushed(changed.*bound, changed.*other);
        environment = changed;
    };
    return made;
}

std::vector<Setting> windRows(BoatSimulationEngine& engine) {
    auto& environment = engine.environment;
    return {choice("wind.preset", "Force du vent", simulation::allWindPresets,
                   place(environment, &SailingEnvironment::windPreset)),
            windBound("wind.low", "Vent mini", {.from = 3, .to = 34, .unit = "nd"}, environment,
                      &SailingEnvironment::customMin, &SailingEnvironment::customMax,
                      [](double low, double high) { return std::max(high, low + 1); }),
            windBound("wind.high", "Vent maxi", {.from = 4, .to = 35, .unit = "nd"}, environment,
                      &SailingEnvironment::customMax, &SailingEnvironment::customMin,
                      [](double high, double low) { return std::min(low, high - 1); })};
}

std::vector<Setting> manualRows(Published<ManualTargets>& targets) {
    const auto row = [&targets](const char* name, const char* label, SettingRange range,
                                double ManualTargets::*member) {
        return number(name, label, range, place(targets, member));
    };
    return {
        row("manual.wind-speed", "Force du vent", {.from = 0, .to = 50, .unit = "nd"},
            &ManualTargets::windSpeed),
        row("manual.wind-angle", "Angle du vent", {.from = -180, .to = 180, .unit = "°"},
            &ManualTargets::windAngle),
        row("manual.speed", "Vitesse fond", {.from = 0, .to = 20, .step = 0.1, .unit = "nd"},
            &ManualTargets::sog),
        row("manual.heading", "Cap", {.from = 0, .to = 359, .unit = "°"}, &ManualTargets::heading),
        row("manual.depth", "Profondeur", {.from = 1, .to = 100, .step = 0.5, .unit = "m"},
            &ManualTargets::depth),
        row("manual.water-temperature", "Température de l'eau",
            {.from = 0, .to = 40, .step = 0.5, .unit = "°C"}, &ManualTargets::waterTemp)};
}

std::vector<Setting> anchorRows(Published<AnchorSettings>& settings) {
    const auto row = [&settings](const char* name, const char* label, SettingRange range,
                                 double AnchorSettings::*member) {
        return number(name, label, range, place(settings, member));
    };
    const auto yesOrNo = [&settings](const char* name, const char* label,
                                     bool AnchorSettings::*member) {
        return flag(name, label, place(settings, member));
    };
    return {row("anchor.wind-direction", "Direction du vent", {.from = 0, .to = 359, .unit = "°"},
                &AnchorSettings::windDirection),
            row("anchor.wind-speed", "Force du vent", {.from = 0, .to = 50, .unit = "nd"},
                &AnchorSettings::windSpeed),
            yesOrNo("anchor.shifting-wind", "Bascules automatiques du vent",
                    &AnchorSettings::shiftingWind),
            row("anchor.shift-amplitude", "Amplitude des bascules",
                {.from = 0, .to = 180, .unit = "°"}, &AnchorSettings::shiftAmplitude),
            row("anchor.chain-length", "Longueur de chaîne", {.from = 5, .to = 200, .unit = "m"},
                &AnchorSettings::chainLength),
            yesOrNo("anchor.chain-taut", "Chaîne tendue", &AnchorSettings::chainTaut),
            yesOrNo("anchor.dragging", "Ancre qui dérape", &AnchorSettings::dragging),
            row("anchor.drag-speed", "Vitesse de dérapage",
                {.from = 0, .to = 3, .step = 0.1, .unit = "nd"}, &AnchorSettings::dragSpeed)};
}

std::vector<Setting> faultRows(faults::FailureInjection& faults) {
    return {
        flag("faults.stop-stream", "Couper le flux", place(faults.stopStream)),
        flag("faults.no-gps", "Couper le GPS", place(faults.disableGPS)),
        flag("faults.no-wind", "Couper le vent", place(faults.disableWind)),
        flag("faults.no-ais", "Couper l'AIS", place(faults.disableAIS)),
        flag("faults.frozen-position", "Figer la position", place(faults.frozenPosition)),
        flag("faults.bad-checksum", "Checksum invalide", place(faults.invalidChecksum)),
        integer("faults.loss", "Perte de paquets", {.from = 0, .to = 100, .step = 5, .unit = "%"},
                place(faults.packetLossPercent)),
        integer("faults.latency", "Latence", {.from = 0, .to = 2000, .step = 50, .unit = "ms"},
                place(faults.latencyMs)),
        flag("faults.disconnections", "Déconnexions aléatoires",
             place(faults.randomDisconnections))};
}

Refusal refused(const Setting& setting, std::string_view text) {
    return {setting.name, fmt::format("« {} » : « {} » est refusé ; il faut {}.", setting.name,
                                      text, setting.allowed())};
}

bool isFault(const Setting& setting) {
    return setting.name.starts_with("faults.");
}

}  // namespace

std::optional<std::string> reasons(const std::vector<Refusal>& refusals) {
    if (refusals.empty()) return std::nullopt;
    std::string all;
    for (const Refusal& each : refusals) all += (all.empty() ? "" : " ") + each.reason;
    return all;
}

Settings::Settings(SimulationConfig& config, faults::FailureInjection& faults,
                   BoatSimulationEngine& engine, GatewaySimulator& gateway) {
    add("Réseau", networkRows(config));
    add("Capteurs", sensorRows(config));
    add("Cadences", rateRows(config));
    add("Navires AIS", {fleet(config, gateway)});
    add("Bateau", boatRows(engine));
    add("Vent", windRows(engine));
    add("Barre manuelle", manualRows(engine.manual));
    add("Mouillage", anchorRows(engine.anchorSettings));
    add("Pannes", faultRows(faults));
    keepForReset();
    configChanges_ = config.observe([this] { notify(); });
    faultChanges_ = faults.observe([this] { notify(); });
    engineChanges_ = engine.observe([this] { notify(); });
}

void Settings::add(std::string_view group, Rows rows) {
    for (Setting& row : rows) {
        row.group = std::string(group);
        row.initial = row.read();
        all_.push_back(std::move(row));
    }
}

const Setting* Settings::find(std::string_view name) const {
    const auto found = std::ranges::find(all_, name, &Setting::name);
    return found == all_.end() ? nullptr : &*found;
}

const Setting& Settings::at(std::string_view name) const {
    const Setting* found = find(name);
    platform::check(found != nullptr, "there must be a setting of that name");
    return *found;
}

Refusal Settings::unknown(std::string_view name) const {
    std::vector<std::string_view> names;
    for (const Setting& each : all_) names.push_back(each.name);
    return {std::string(name),
            fmt::format("« {} » n'est pas un réglage ; le plus proche est « {} ».", name,
                        nearestName(name, names))};
}

std::optional<Refusal> Settings::windProblem(const Values& values) const {
    double low = std::get<double>(at("wind.low").read());
    double high = std::get<double>(at("wind.high").read());
    std::string name;
    for (const auto& [each, value] : values) {
        if (each != "wind.low" && each != "wind.high") continue;
        (each == "wind.low" ? low : high) = std::get<double>(value);
        name = each;
    }
    if (name.empty() || low < high) return std::nullopt;
    return Refusal{name, fmt::format("« {} » : le vent ne peut aller de {} à {} nd ; il faut que "
                                     "wind.low soit inférieur à wind.high.",
                                     name, textOf(low), textOf(high))};
}

std::vector<Refusal> Settings::write(const Values& values) {
    std::vector<Refusal> refusals;
    for (const auto& [name, value] : values) {
        const Setting* setting = find(name);
        if (!setting)
            refusals.push_back(unknown(name));
        else if (!setting->fits(value))
            refusals.push_back(refused(*setting, textOf(value)));
    }
    if (refusals.empty())
        if (auto problem = windProblem(values)) refusals.push_back(std::move(*problem));
    if (!refusals.empty()) return refusals;
    for (const bool isPreset : {true, false})
        for (const auto& [name, value] : values)
            if ((name == "network.preset") == isPreset) at(name).write(value);
    return {};
}

std::vector<Refusal> Settings::writeTexts(const Texts& texts) {
    Values values;
    std::vector<Refusal> refusals;
    for (const auto& [name, text] : texts) {
        const Setting* setting = find(name);
        if (!setting)
            refusals.push_back(unknown(name));
        else if (auto value = setting->parse(text))
            values.emplace_back(name, std::move(*value));
        else
            refusals.push_back(refused(*setting, text));
    }
    return refusals.empty() ? write(values) : refusals;
}

std::vector<const Setting*> Settings::activeFaults() const {
    std::vector<const Setting*> active;
    for (const Setting& each : all_)
        if (isFault(each) && each.read() != each.initial) active.push_back(&each);
    return active;
}

void Settings::clearFaults() {
    for (const Setting* each : activeFaults()) each->write(each->initial);
}

void Settings::keepForReset() {
    kept_.clear();
    for (const Setting& each : all_) kept_.push_back(each.read());
}

void Settings::reset() {
    for (std::size_t i = 0; i < all_.size(); ++i)
        if (all_[i].read() != kept_[i]) all_[i].write(kept_[i]);
}

}  // namespace tidewright::gateway
