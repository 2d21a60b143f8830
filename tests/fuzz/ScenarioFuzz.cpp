#include <algorithm>
#include <chrono>
#include <string>
#include <string_view>
#include <utility>

#include "FuzzInput.h"
#include "platform/Check.h"
#include "platform/PacedMainLoop.h"
#include "platform/VirtualMainLoop.h"
#include "scenario/ScenarioReader.h"
#include "scenario/ScenarioRunner.h"
#include "simulation/SeededRandom.h"
#include "support/PretendHost.h"

namespace tidewright::fuzz {

using platform::check;
using scenario::Mistake;
using scenario::Place;
using scenario::Scenario;

namespace {
using namespace std::chrono_literals;

void checkPlace(std::string_view text, const Mistake& mistake) {
    check(mistake.offset <= text.size(), "a mistake lies within the text");
    const Place place = scenario::placeIn(text, mistake.offset);
    const auto lines = static_cast<std::size_t>(
        std::ranges::count_if(text, [](char each) { return each == '\n' || each == '\r'; }));
    check(1 <= place.line && place.line <= lines + 1, "a mistake is on a line of the text");
    check(1 <= place.column && place.column <= text.size() + 1, "a mistake is in its line");
    check(!mistake.text.empty(), "a mistake says what is wrong");
}

void checkMistakes(std::string_view text, const scenario::ScenarioReading& reading) {
    check(reading.scenario.has_value() == reading.mistakes.empty(), "it is read or refused");
    check(std::ranges::is_sorted(reading.mistakes, {}, &Mistake::offset), "mistakes are in order");
    for (const Mistake& each : reading.mistakes) checkPlace(text, each);
    if (reading.mistakes.empty()) return;
    const auto told = scenario::mistakesText("fuzz.yaml", text, reading.mistakes);
    check(static_cast<std::size_t>(std::ranges::count(told, '\n')) <= scenario::mostMistakes + 1,
          "mistakes are one line each");
}

/// A large fleet takes long, and is no concern of a scenario.
void shrinkFleets(gateway::Settings::Texts& texts) {
    for (auto& [name, value] : texts)
        if (name == "ais.count") value.assign(1, '3');
}

/// Ten minutes of it, in a gateway without sockets.
void play(Scenario scenario) {
    platform::VirtualMainLoop machine;
    platform::PacedMainLoop run(machine, {}, platform::PacedMainLoop::unlimited);
    simulation::SeededRandom random(scenario.seed.value_or(1));
    PretendHost host;
    gateway::Assembly assembly(host.host(run, random));
    shrinkFleets(scenario.set);
    for (scenario::Step& each : scenario.steps) shrinkFleets(each.set);
    check(assembly.settings.writeTexts(scenario.set).empty(), "what was judged good is written");
    int ends = 0;
    scenario::ScenarioRunner runner(
        run, assembly, std::move(scenario),
        {.write =
             [](std::string_view line) {
                 check(line.find('\n') == line.size() - 1, "each line is one");
             },
         .end =
             [&](int status) {
                 check(status == 0 || status == 3, "a scenario ends well or has failed");
                 check(++ends == 1, "a scenario ends once");
                 run.hold();
             }});
    assembly.gateway.start();
    runner.begin();
    run.after(10min, [&run] { run.hold(); });
    machine.advance(0s);
}

}  // namespace

void tryInput(FuzzInput input) {
    const bool replays = input.flag();
    const std::string_view text = input.rest();
    auto reading = scenario::readScenario(text, {.apply = {}, .replays = replays});
    checkMistakes(text, reading);
    if (reading.scenario) play(std::move(*reading.scenario));
}

}  // namespace tidewright::fuzz
