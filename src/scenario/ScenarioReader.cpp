#include "scenario/ScenarioReader.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include "gateway/NearestName.h"
#include "platform/TimeText.h"
#include "scenario/Rehearsal.h"
#include "scenario/YamlTree.h"
#include "simulation/SeededRandom.h"

namespace tidewright::scenario {

namespace {

using platform::MainLoop;
using Kind = YamlNode::Kind;
using Names = std::vector<std::string_view>;

constexpr MainLoop::Duration longestRun = std::chrono::hours(24) * 36'525;

constexpr std::string_view durationsAllowed = "une durée, comme 90s, 10m ou 1h30m";

std::optional<bool> parseFlag(std::string_view text) {
    if (text == "true") return true;
    if (text == "false") return false;
    return std::nullopt;
}

std::optional<std::string> parseLine(std::string_view text) {
    std::string line = oneLine(text);
    return line.empty() ? std::nullopt : std::optional(std::move(line));
}

/// The entry of that name; null where there is none.
const YamlEntry* find(const YamlNode& map, std::string_view name) {
    const auto found = std::ranges::find_if(
        map.entries, [name](const YamlEntry& each) { return each.key.text == name; });
    return found == map.entries.end() ? nullptr : &*found;
}

Names actionNames(const gateway::Actions& actions) {
    Names names;
    for (const gateway::Action& each : actions.all()) names.push_back(each.name);
    return names;
}

Names quantityNames() {
    Names names;
    for (const Quantity& each : quantities) names.push_back(each.name);
    return names;
}

/// The earliest and the latest time, since the start, at which a step can be played.
struct StepTimes {
    MainLoop::Duration earliest{0};
    MainLoop::Duration latest{0};

    StepTimes next(Timing timing, MainLoop::Duration time) const {
        switch (timing) {
            case Timing::at:
                return {std::max(earliest, time), std::max(latest, time)};
            case Timing::after:
                return {earliest + time, latest + time};
            case Timing::within:
                return {earliest, latest + time};
        }
        return *this;
    }
};

class Reader {
public:
    explicit Reader(const RunOptions& options) : options_(options) {}

    Scenario read(const YamlNode& root);
    std::vector<Mistake> takeMistakes() { return std::move(mistakes_); }

private:
    struct TimingKey {
        std::string_view name;
        Timing timing;
    };
    static constexpr std::array<TimingKey, 3> timings{
        {{"at", Timing::at}, {"after", Timing::after}, {"within", Timing::within}}};

    void complain(std::size_t offset, std::string text) {
        mistakes_.push_back({offset, std::move(text)});
    }
    void complainOfUnknown(const YamlNode& name, std::string_view what, const Names& known);
    bool isMap(const YamlNode& node, std::size_t offset, std::string_view name);
    void checkKeys(const YamlNode& map, const Names& known);

    template <typename Value>
    std::optional<Value> valueOf(const YamlEntry* entry,
                                 std::optional<Value> (*parse)(std::string_view),
                                 std::string_view allowed);

    gateway::Settings::Texts readSettings(const YamlEntry* entry);
    std::vector<Step> readSteps(const YamlEntry* entry);
    Step readStep(const YamlNode& node);
    void readTiming(const YamlNode& node, Step& step);
    void follow(const YamlEntry& entry, const Step& step);
    std::vector<std::string> readActions(const YamlEntry* entry);
    void readAction(const YamlNode& node, std::vector<std::string>& actions);
    std::vector<Expectation> readExpectations(const YamlEntry* entry);
    std::optional<Expectation> readExpectation(const YamlEntry& entry);
    void checkJudgeable(const YamlEntry& entry, const Quantity& quantity);
    std::optional<Bound> readBound(const YamlEntry* entry, const Quantity& quantity);
    std::optional<Expectation> readBounds(const YamlEntry& entry, const Quantity& quantity);

    const RunOptions& options_;
    Rehearsal rehearsal_;
    StepTimes times_;
    std::vector<Mistake> mistakes_;
};

Scenario Reader::read(const YamlNode& root) {
    Scenario scenario;
    if (root.kind != Kind::map) {
        complain(root.offset, "un scénario est une suite de clés et de valeurs.");
        return scenario;
    }
    checkKeys(root, {"name", "seed", "start", "speed", "set", "steps"});
    scenario.name = valueOf(find(root, "name"), parseLine, "un texte").value_or("");
    scenario.seed =
        valueOf(find(root, "seed"), simulation::parseSeed, "un nombre entier de 0 à 2^64−1");
    scenario.start = valueOf(find(root, "start"), platform::parseUtc,
                             "un temps UTC, comme 2026-06-01T12:00:00Z");
    scenario.speed =
        valueOf(find(root, "speed"), platform::parseSpeed, "un nombre de 0.1 à 1000, ou max");
    scenario.set = readSettings(find(root, "set"));
    if (options_.apply) options_.apply(rehearsal_.assembly());
    rehearsal_.begin();
    scenario.steps = readSteps(find(root, "steps"));
    return scenario;
}

void Reader::complainOfUnknown(const YamlNode& name, std::string_view what, const Names& known) {
    const bool isFeminine = what.starts_with("une ");
    complain(name.offset,
             fmt::format("« {} » n'est pas {} ; {} plus proche est « {} ».", name.text, what,
                         isFeminine ? "la" : "le", gateway::nearestName(name.text, known)));
}

/// Whether `node` is a map that holds something; complains where it is not.
bool Reader::isMap(const YamlNode& node, std::size_t offset, std::string_view name) {
    const bool isGood = node.kind == Kind::map && !node.entries.empty();
    if (!isGood) complain(offset, fmt::format("« {} » : il faut des clés et des valeurs.", name));
    return isGood;
}

void Reader::checkKeys(const YamlNode& map, const Names& known) {
    for (const YamlEntry& each : map.entries) {
        if (std::ranges::find(known, each.key.text) == known.end())
            complainOfUnknown(each.key, "un mot connu ici", known);
    }
}

template <typename Value>
std::optional<Value> Reader::valueOf(const YamlEntry* entry,
                                     std::optional<Value> (*parse)(std::string_view),
                                     std::string_view allowed) {
    if (!entry) return std::nullopt;
    const YamlNode& value = entry->value;
    std::optional<Value> parsed = value.kind == Kind::text ? parse(value.text) : std::nullopt;
    if (!parsed && value.kind == Kind::text)
        complain(value.offset, fmt::format("« {} » : « {} » est refusé ; il faut {}.",
                                           entry->key.text, value.text, allowed));
    else if (!parsed)
        complain(entry->valueOffset(),
                 fmt::format("« {} » : il faut {}.", entry->key.text, allowed));
    return parsed;
}

gateway::Settings::Texts Reader::readSettings(const YamlEntry* entry) {
    gateway::Settings::Texts texts;
    if (!entry || !isMap(entry->value, entry->valueOffset(), entry->key.text)) return texts;
    for (const auto& [key, value] : entry->value.entries) {
        const bool isText = value.kind == Kind::text || value.kind == Kind::null;
        texts.emplace_back(key.text, isText ? value.text : "…");  // which no setting takes
    }
    for (const gateway::Refusal& each : rehearsal_.set(texts)) {
        const YamlEntry& refused = *find(entry->value, each.name);
        const bool isUnknown = !rehearsal_.assembly().settings.find(each.name);
        complain(isUnknown ? refused.key.offset : refused.valueOffset(), each.reason);
    }
    return texts;
}

std::vector<Step> Reader::readSteps(const YamlEntry* entry) {
    std::vector<Step> steps;
    if (!entry) return steps;
    if (entry->value.kind != Kind::list) {
        complain(entry->valueOffset(), "« steps » : il faut une liste.");
        return steps;
    }
    const std::size_t before = mistakes_.size();
    for (const YamlNode& each : entry->value.items) {
        if (mistakes_.size() - before >= mostMistakes) break;
        steps.push_back(readStep(each));
    }
    return steps;
}

Step Reader::readStep(const YamlNode& node) {
    Step step;
    if (!isMap(node, node.offset, "steps")) return step;
    checkKeys(node, {"at", "after", "within", "set", "do", "say", "expect", "end"});
    readTiming(node, step);
    step.set = readSettings(find(node, "set"));
    step.actions = readActions(find(node, "do"));
    step.say = valueOf(find(node, "say"), parseLine, "un texte").value_or("");
    step.expectations = readExpectations(find(node, "expect"));
    step.ends = valueOf(find(node, "end"), parseFlag, "true ou false").value_or(false);
    constexpr std::array<std::string_view, 5> work{"set", "do", "say", "expect", "end"};
    if (std::ranges::none_of(work, [&node](std::string_view each) { return find(node, each); }))
        complain(node.offset, "cette étape ne fait rien : il faut set, do, say, expect ou end.");
    return step;
}

void Reader::readTiming(const YamlNode& node, Step& step) {
    const YamlEntry* timed = nullptr;
    for (const YamlEntry& each : node.entries) {
        const auto* key = std::ranges::find(timings, each.key.text, &TimingKey::name);
        if (key == timings.end()) continue;
        if (timed) {
            complain(each.key.offset,
                     fmt::format("« {} » ne va pas avec « {} ».", each.key.text, timed->key.text));
            return;
        }
        timed = &each;
        step.timing = key->timing;
    }
    if (!timed) {
        complain(node.offset, "cette étape n'a pas de temps : il faut at, after ou within.");
        return;
    }
    if (step.timing == Timing::within && !find(node, "expect"))
        complain(timed->key.offset, "« within » ne va pas sans « expect ».");
    if (const auto time = valueOf(timed, platform::parseDuration, durationsAllowed)) {
        step.time = *time;
        follow(*timed, step);
    }
}

/// Moves the times on to those of `step`.
void Reader::follow(const YamlEntry& entry, const Step& step) {
    const StepTimes next = times_.next(step.timing, step.time);
    if (step.timing == Timing::at && step.time < times_.earliest)
        complain(entry.value.offset,
                 fmt::format("« at » : « {} » est avant l'étape précédente.", entry.value.text));
    else if (next.latest > longestRun)
        complain(entry.value.offset, fmt::format("« {} » : cette étape vient plus de cent ans "
                                                 "après le début.",
                                                 entry.key.text));
    else
        times_ = next;
}

std::vector<std::string> Reader::readActions(const YamlEntry* entry) {
    std::vector<std::string> actions;
    if (!entry) return actions;
    const YamlNode& value = entry->value;
    if (value.kind == Kind::text)
        readAction(value, actions);
    else if (value.kind != Kind::list || value.items.empty())
        complain(entry->valueOffset(), "« do » : il faut une action, ou une liste d'actions.");
    else
        for (const YamlNode& each : value.items) readAction(each, actions);
    return actions;
}

void Reader::readAction(const YamlNode& node, std::vector<std::string>& actions) {
    const gateway::Actions& known = rehearsal_.assembly().actions;
    if (node.kind != Kind::text)
        return complain(node.offset, "« do » : il faut le nom d'une action.");
    if (!known.find(node.text)) return complainOfUnknown(node, "une action", actionNames(known));
    rehearsal_.perform(node.text);
    actions.push_back(node.text);
}

std::vector<Expectation> Reader::readExpectations(const YamlEntry* entry) {
    std::vector<Expectation> expectations;
    if (!entry || !isMap(entry->value, entry->valueOffset(), entry->key.text)) return expectations;
    for (const YamlEntry& each : entry->value.entries)
        if (auto expectation = readExpectation(each))
            expectations.push_back(std::move(*expectation));
    return expectations;
}

std::optional<Expectation> Reader::readExpectation(const YamlEntry& entry) {
    const Quantity* quantity = findQuantity(entry.key.text);
    if (!quantity) {
        complainOfUnknown(entry.key, "une attente", quantityNames());
        return std::nullopt;
    }
    checkJudgeable(entry, *quantity);
    if (entry.value.kind == Kind::map) return readBounds(entry, *quantity);
    const auto bound = readBound(&entry, *quantity);
    if (!bound) return std::nullopt;
    return Expectation::equal(*quantity, *bound);
}

void Reader::checkJudgeable(const YamlEntry& entry, const Quantity& quantity) {
    if (quantity.isOfTheBoat && options_.replays)
        complain(entry.key.offset,
                 fmt::format("« {} » ne peut être jugé pendant une relecture.", quantity.name));
    else if (quantity.needsAnchor && !rehearsal_.isAtAnchor())
        complain(entry.key.offset,
                 fmt::format("« {} » ne peut être jugé ici : boat.mode n'est pas anchor.",
                             quantity.name));
}

std::optional<Bound> Reader::readBound(const YamlEntry* entry, const Quantity& quantity) {
    if (!entry) return std::nullopt;
    const YamlNode& value = entry->value;
    auto bound = value.kind == Kind::text ? Bound::parse(value.text, quantity) : std::nullopt;
    if (!bound)
        complain(entry->valueOffset(),
                 fmt::format("« {} » : il faut un nombre{} à partir de 0, ou min et max.",
                             entry->key.text, quantity.isCount() ? " entier" : ""));
    return bound;
}

std::optional<Expectation> Reader::readBounds(const YamlEntry& entry, const Quantity& quantity) {
    if (!isMap(entry.value, entry.valueOffset(), quantity.name)) return std::nullopt;
    checkKeys(entry.value, {"min", "max"});
    const YamlEntry* most = find(entry.value, "max");
    const auto least = readBound(find(entry.value, "min"), quantity);
    const auto greatest = readBound(most, quantity);
    if (!least && !greatest) return std::nullopt;
    if (least && greatest && least->value > greatest->value) {
        complain(most->value.offset, fmt::format("« max » : {} est au-dessous de min, {}.",
                                                 greatest->text, least->text));
        return std::nullopt;
    }
    return Expectation::between(quantity, least, greatest);
}

}  // namespace

ScenarioReading readScenario(std::string_view text, const RunOptions& options) {
    if (auto stray = strayCharacter(text)) return {.mistakes = {std::move(*stray)}};
    YamlReading yaml = readYaml(text);
    ScenarioReading reading{.mistakes = std::move(yaml.mistakes)};
    if (yaml.root) {
        Reader reader(options);
        reading.scenario = reader.read(*yaml.root);
        for (Mistake& each : reader.takeMistakes()) reading.mistakes.push_back(std::move(each));
    } else if (reading.mistakes.empty()) {
        reading.mistakes.push_back({text.size(), "ce fichier ne contient rien."});
    }
    std::ranges::stable_sort(reading.mistakes, {}, &Mistake::offset);
    if (!reading.mistakes.empty()) reading.scenario.reset();
    return reading;
}

}  // namespace tidewright::scenario
