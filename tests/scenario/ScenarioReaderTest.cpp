#include "scenario/ScenarioReader.h"

#include <gmock/gmock.h>

#include "platform/PacedMainLoop.h"

namespace tidewright::scenario {
namespace {
using namespace std::chrono_literals;

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

/// What is wrong with `text`, each as "LINE:COLUMN text".
std::vector<std::string> mistakesIn(std::string_view text, const RunOptions& options = {}) {
    std::vector<std::string> told;
    const auto reading = readScenario(text, options);
    EXPECT_EQ(reading.scenario.has_value(), reading.mistakes.empty());
    for (const auto& [offset, what] : reading.mistakes) {
        const Place place = placeIn(text, offset);
        told.push_back(std::to_string(place.line) + ":" + std::to_string(place.column) + " " +
                       what);
    }
    return told;
}

Scenario scenarioIn(std::string_view text) {
    EXPECT_THAT(mistakesIn(text), IsEmpty());
    return readScenario(text, {}).scenario.value_or(Scenario{});
}

/// The same for the steps alone, the first of which is on line 2.
std::vector<std::string> mistakesInSteps(const std::string& steps, const RunOptions& options = {}) {
    return mistakesIn("steps:\n" + steps, options);
}

TEST(ScenarioReaderTest, readsAWholeScenario) {
    const auto scenario = scenarioIn(R"(name: Le lien Wi-Fi se fige
seed: 18446744073709551615
start: 2026-06-01T12:00:00Z
speed: 2.5
set:                                     # before the start
  network.preset: nke
  ais.count: 3
steps:
  - at: 10s
    set: {faults.stop-stream: true}
  - after: 30s
    set: {faults.stop-stream: false}
    do: drop-clients
  - within: 20s
    expect: {clients: {min: 1}}
  - at: 2m
    say: L'application est revenue.
    end: true
)");
    EXPECT_EQ(scenario.name, "Le lien Wi-Fi se fige");
    EXPECT_EQ(scenario.seed, 18446744073709551615U);
    EXPECT_EQ(scenario.start, std::chrono::sys_days(std::chrono::June / 1 / 2026) + 12h);
    EXPECT_EQ(scenario.speed, 2.5);
    EXPECT_THAT(scenario.set, ElementsAre(Pair("network.preset", "nke"), Pair("ais.count", "3")));
    ASSERT_EQ(scenario.steps.size(), 4U);
    EXPECT_EQ(scenario.steps[0].timing, Timing::at);
    EXPECT_EQ(scenario.steps[0].time, 10s);
    EXPECT_EQ(scenario.steps[1].timing, Timing::after);
    EXPECT_THAT(scenario.steps[1].set, ElementsAre(Pair("faults.stop-stream", "false")));
    EXPECT_THAT(scenario.steps[1].actions, ElementsAre("drop-clients"));
    EXPECT_EQ(scenario.steps[2].timing, Timing::within);
    EXPECT_EQ(scenario.steps[2].expectations.at(0).from, 1);
    EXPECT_EQ(scenario.steps[3].say, "L'application est revenue.");
    EXPECT_TRUE(scenario.steps[3].ends);
}

TEST(ScenarioReaderTest, needsNothingButOneKey) {
    const auto scenario = scenarioIn("speed: max\n");
    EXPECT_EQ(scenario.name, "");
    EXPECT_FALSE(scenario.seed || scenario.start);
    EXPECT_EQ(scenario.speed, platform::PacedMainLoop::unlimited);
    EXPECT_TRUE(scenario.steps.empty());
    EXPECT_THAT(mistakesIn("# rien\n"), ElementsAre("2:1 ce fichier ne contient rien."));
    EXPECT_THAT(mistakesIn("- a\n"),
                ElementsAre("1:1 un scénario est une suite de clés et de valeurs."));
}

TEST(ScenarioReaderTest, takesAListOfActions) {
    EXPECT_THAT(scenarioIn("steps: [{at: 0s, do: [stop, start]}]\n").steps.at(0).actions,
                ElementsAre("stop", "start"));
}

TEST(ScenarioReaderTest, takesKeysInAnyOrder) {
    const auto scenario =
        scenarioIn("steps: [{say: a, set: {boat.mode: anchor}, at: 1s}]\nset: {faults.loss: 5}\n");
    EXPECT_EQ(scenario.steps.at(0).time, 1s);
    EXPECT_THAT(scenario.set, ElementsAre(Pair("faults.loss", "5")));
}

TEST(ScenarioReaderTest, takesAPositionInQuotes) {
    EXPECT_THAT(scenarioIn("set: {boat.home: '48.1,-4.5'}\n").set,
                ElementsAre(Pair("boat.home", "48.1,-4.5")));
    EXPECT_FALSE(mistakesIn("set: {boat.home: 48.1,-4.5}\n").empty());
    EXPECT_THAT(scenarioIn("set:\n  boat.home: 48.1,-4.5\n").set,
                ElementsAre(Pair("boat.home", "48.1,-4.5")));
}

TEST(ScenarioReaderTest, makesOneLineOfWhatIsSaid) {
    const auto scenario = scenarioIn("name: |\n  a\n  b\nsteps: [{at: 0s, say: \"c\\n\\ed\"}]\n");
    EXPECT_EQ(scenario.name, "a b");
    EXPECT_EQ(scenario.steps.at(0).say, "c d");
}

TEST(ScenarioReaderTest, refusesUnknownWordsAndSuggestsTheNearest) {
    EXPECT_THAT(
        mistakesIn("nmae: a\nset: {faults.los: 1}\nsteps:\n"
                   "  - {at: 1s, doo: tack}\n"
                   "  - {at: 2s, do: takc}\n"
                   "  - {at: 3s, expect: {client: 1, clients: {mni: 1}}}\n"),
        ElementsAre("1:1 « nmae » n'est pas un mot connu ici ; le plus proche est « name ».",
                    "2:7 « faults.los » n'est pas un réglage ; le plus proche est « faults.loss ».",
                    "4:5 cette étape ne fait rien : il faut set, do, say, expect ou end.",
                    "4:14 « doo » n'est pas un mot connu ici ; le plus proche est « do ».",
                    "5:18 « takc » n'est pas une action ; la plus proche est « tack ».",
                    "6:23 « client » n'est pas une attente ; la plus proche est « clients ».",
                    "6:44 « mni » n'est pas un mot connu ici ; le plus proche est « min »."));
}

TEST(ScenarioReaderTest, refusesValuesThatAreNone) {
    EXPECT_THAT(
        mistakesIn("name: []\nseed: -1\nstart: 2026-06-01\nspeed: 0\nset: 1\nsteps: {}\n"),
        ElementsAre("1:7 « name » : il faut un texte.",
                    "2:7 « seed » : « -1 » est refusé ; il faut un nombre entier de 0 à 2^64−1.",
                    "3:8 « start » : « 2026-06-01 » est refusé ; il faut un temps UTC, comme "
                    "2026-06-01T12:00:00Z.",
                    "4:8 « speed » : « 0 » est refusé ; il faut un nombre de 0.1 à 1000, ou max.",
                    "5:6 « set » : il faut des clés et des valeurs.",
                    "6:8 « steps » : il faut une liste."));
    EXPECT_THAT(mistakesIn("seed: 18446744073709551616\n").size(), 1);
    EXPECT_THAT(mistakesIn("seed:\nset:\nsteps:\n"),
                ElementsAre("1:1 « seed » : il faut un nombre entier de 0 à 2^64−1.",
                            "2:1 « set » : il faut des clés et des valeurs.",
                            "3:1 « steps » : il faut une liste."));
}

TEST(ScenarioReaderTest, refusesWhatIsNoStep) {
    EXPECT_THAT(
        mistakesInSteps("  - a\n"
                        "  - {at: 5, say: a}\n"
                        "  - {at: 1s, do: [], say: , expect: {}, end: 1}\n"
                        "  - {at: 1s, do: [[a]], expect: {clients: {}, sog: [1]}}\n"),
        ElementsAre("2:5 « steps » : il faut des clés et des valeurs.",
                    "3:10 « at » : « 5 » est refusé ; il faut une durée, comme 90s, 10m ou 1h30m.",
                    "4:18 « do » : il faut une action, ou une liste d'actions.",
                    "4:22 « say » : il faut un texte.",
                    "4:37 « expect » : il faut des clés et des valeurs.",
                    "4:46 « end » : « 1 » est refusé ; il faut true ou false.",
                    "5:19 « do » : il faut le nom d'une action.",
                    "5:43 « clients » : il faut des clés et des valeurs.",
                    "5:52 « sog » : il faut un nombre à partir de 0, ou min et max."));
}

TEST(ScenarioReaderTest, wantsOneTimeAndSomethingToDo) {
    EXPECT_THAT(mistakesInSteps("  - say: a\n"
                                "  - {at: 1s, say: a, after: 2s}\n"
                                "  - at: 1s\n"
                                "  - {within: 5s, say: a}\n"),
                ElementsAre("2:5 cette étape n'a pas de temps : il faut at, after ou within.",
                            "3:22 « after » ne va pas avec « at ».",
                            "4:5 cette étape ne fait rien : il faut set, do, say, expect ou end.",
                            "5:6 « within » ne va pas sans « expect »."));
}

TEST(ScenarioReaderTest, refusesAKeyTwice) {
    EXPECT_THAT(mistakesIn("name: a\nname: b\nset: {faults.loss: 1, faults.loss: 2}\n"),
                ElementsAre("2:1 « name » figure déjà plus haut.",
                            "3:23 « faults.loss » figure déjà plus haut."));
}

TEST(ScenarioReaderTest, refusesAMinimumAboveTheMaximum) {
    EXPECT_THAT(mistakesInSteps("  - {at: 1s, expect: {clients: {min: 3, max: 2}}}\n"),
                ElementsAre("2:46 « max » : 2 est au-dessous de min, 3."));
    EXPECT_THAT(mistakesInSteps("  - {at: 1s, expect: {clients: {min: 2, max: 2}}}\n"), IsEmpty());
}

TEST(ScenarioReaderTest, refusesAStepBeforeThePreviousOne) {
    EXPECT_THAT(mistakesInSteps("  - {at: 20s, say: a}\n"
                                "  - {after: 10s, say: b}\n"
                                "  - {within: 60s, expect: {clients: 1}}\n"
                                "  - {at: 29s, say: c}\n"
                                "  - {at: 30s, say: d}\n"),
                ElementsAre("5:10 « at » : « 29s » est avant l'étape précédente."));
}

TEST(ScenarioReaderTest, refusesStepsBeyondACentury) {
    EXPECT_THAT(
        mistakesInSteps("  - {after: 876000h, say: a}\n"
                        "  - {within: 876000h, expect: {clients: 1}}\n"),
        ElementsAre("3:14 « within » : cette étape vient plus de cent ans après le début."));
}

TEST(ScenarioReaderTest, refusesWhatSettingsRefuse) {
    EXPECT_THAT(mistakesIn("set:\n  faults.loss: 101\n  network.tcp:\n  ais.count: [1]\n"),
                ElementsAre("2:16 « faults.loss » : « 101 » est refusé ; il faut un nombre entier "
                            "de 0 à 100 %.",
                            "3:3 « network.tcp » : «  » est refusé ; il faut true ou false.",
                            "4:14 « ais.count » : « … » est refusé ; il faut un nombre entier de 0 "
                            "à 100000."));
}

TEST(ScenarioReaderTest, judgesTheWindStepByStep) {
    EXPECT_THAT(
        mistakesIn("set: {wind.low: 20, wind.high: 25}\nsteps:\n"
                   "  - {at: 1s, set: {wind.low: 22}}\n"
                   "  - {at: 2s, set: {wind.high: 21}}\n"
                   "  - {at: 3s, do: reset}\n"
                   "  - {at: 4s, set: {wind.high: 21}}\n"),
        ElementsAre("4:31 « wind.high » : le vent ne peut aller de 22 à 21 nd ; il faut que "
                    "wind.low soit inférieur à wind.high."));
}

TEST(ScenarioReaderTest, judgesInWhatTheCommandLineSetsAfterTheFile) {
    const RunOptions options{.apply = [](gateway::Assembly& assembly) {
        ASSERT_TRUE(assembly.settings.writeTexts({{"wind.high", "35"}}).empty());
    }};
    const std::string text = "set: {wind.low: 15}\nsteps: [{at: 1s, set: {wind.low: 30}}]\n";
    EXPECT_THAT(mistakesIn(text, options), IsEmpty());
    EXPECT_EQ(mistakesIn(text).size(), 1U);
}

TEST(ScenarioReaderTest, refusesExpectationsOfTheBoatInAReplay) {
    EXPECT_THAT(
        mistakesInSteps("  - {at: 1s, expect: {sog: 1, depth: 2, clients: 1}}\n"
                        "  - {at: 1s, set: {boat.mode: anchor}, expect: {anchor-distance: 1}}\n",
                        {.apply = {}, .replays = true}),
        ElementsAre("2:23 « sog » ne peut être jugé pendant une relecture.",
                    "2:31 « depth » ne peut être jugé pendant une relecture.",
                    "3:49 « anchor-distance » ne peut être jugé pendant une relecture."));
}

TEST(ScenarioReaderTest, refusesTheDistanceFromAnAnchorThatIsUp) {
    EXPECT_THAT(
        mistakesInSteps("  - {at: 1s, expect: {anchor-distance: 1}}\n"
                        "  - {at: 2s, expect: {anchor-distance: 1}, set: {boat.mode: anchor}}\n"
                        "  - {at: 3s, do: reset, expect: {anchor-distance: 1}}\n"),
        ElementsAre("2:23 « anchor-distance » ne peut être jugé ici : boat.mode n'est pas "
                    "anchor.",
                    "4:34 « anchor-distance » ne peut être jugé ici : boat.mode n'est pas "
                    "anchor."));
}

TEST(ScenarioReaderTest, placesMistakesByCharacters) {
    EXPECT_THAT(mistakesIn("{name: 'é⛵é', spede: 1}\n"),
                ElementsAre("1:15 « spede » n'est pas un mot connu ici ; le plus proche est "
                            "« speed »."));
}

TEST(ScenarioReaderTest, refusesBytesThatAreNoUtf8) {
    EXPECT_THAT(mistakesIn("name: a\nx: \xE9\n"), ElementsAre("2:4 ce n'est pas de l'UTF-8."));
}

TEST(ScenarioReaderTest, findsTheFirstTwentyAtLeastHoweverManyThereAre) {
    std::string text = "steps:\n";
    for (int i = 0; i < 10'000; ++i) text += "- {at: 1s, do: nope" + std::to_string(i) + "}\n";
    text += "set:\n";
    for (int i = 0; i < 10'000; ++i) text += "  nope" + std::to_string(i) + ": 1\n";
    const auto mistakes = mistakesIn(text);
    ASSERT_GE(mistakes.size(), 20U);
    EXPECT_TRUE(mistakes[19].starts_with("21:16 « nope19 »")) << mistakes[19];
    EXPECT_LT(mistakes.size(), 100U);
}

}  // namespace
}  // namespace tidewright::scenario
