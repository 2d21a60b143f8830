#include "scenario/ScenarioRunner.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <utility>

#include "gateway/Assembly.h"
#include "platform/VirtualMainLoop.h"
#include "scenario/ScenarioFile.h"
#include "support/NumberedClients.h"
#include "support/PretendHost.h"
#include "support/ScriptedRandom.h"

namespace tidewright::scenario {
namespace {
using namespace std::chrono_literals;

using testing::ElementsAre;
using testing::IsEmpty;

/// A scenario played on a gateway whose transports record.
struct ScenarioRunnerTest : testing::Test {
    platform::VirtualMainLoop machine;
    platform::PacedMainLoop run{machine, {}, 1};
    ScriptedRandom random;
    PretendHost host;
    gateway::Assembly assembly{host.host(run, random)};
    std::optional<ScenarioRunner> runner;
    std::vector<std::string> lines;  ///< without their line ends
    std::optional<int> status;
    platform::MainLoop::Duration end{};

    void play(const std::string& text) {
        auto reading = readScenario(text, {});
        ASSERT_TRUE(reading.scenario) << mistakesText("test", text, reading.mistakes);
        play(std::move(*reading.scenario));
    }

    void play(Scenario scenario) {
        ASSERT_TRUE(assembly.settings.writeTexts(scenario.set).empty());
        runner.emplace(
            run, assembly, std::move(scenario),
            ScenarioRunner::Reports{.write = [this](std::string_view line) { take(line); },
                                    .end = [this](int how) { finish(how); }});
        assembly.settings.keepForReset();
        assembly.gateway.start();
        runner->begin();
    }

    void take(std::string_view line) {
        ASSERT_TRUE(line.ends_with('\n'));
        lines.emplace_back(line.substr(0, line.size() - 1));
    }

    void finish(int how) {
        EXPECT_FALSE(status) << "ends once";
        status = how;
        end = run.now().time_since_epoch();
        assembly.gateway.stop();
        run.hold();
    }

    /// An app that looks every second whether it is connected, and connects anew where it is not.
    platform::Subscription app() {
        return machine.every(1s, [this, drops = 0]() mutable {
            const int before = std::exchange(drops, host.tcp->dropAllClientsCalls);
            const bool isConnected = !assembly.gateway.tcpClients->empty() && before == drops;
            if (!host.tcp->running || isConnected) return;
            ++host.tcp->accepted;
            connect({"192.168.1.20"});
        });
    }

    void connect(const std::vector<std::string>& addresses) const {
        host.tcp->onClientsChanged(network::numberedClients(addresses));
    }
};

TEST_F(ScenarioRunnerTest, playsStepsAtTheirTimesAndSaysSo) {
    play(
        "steps:\n"
        "  - {at: 10s, set: {faults.loss: 50, faults.no-gps: true}}\n"
        "  - {after: 30s, set: {faults.loss: 0}, do: [drop-clients, tack], say: Voilà}\n"
        "  - {at: 1h1m1s5ms, say: Fini, end: true}\n");
    machine.advance(10s);
    EXPECT_TRUE(assembly.faults.disableGPS);
    EXPECT_EQ(host.tcp->dropAllClientsCalls, 0);
    machine.advance(30s);
    EXPECT_EQ(host.tcp->dropAllClientsCalls, 1);
    machine.advance(2h);
    EXPECT_THAT(lines, ElementsAre("00:00:10.000  faults.loss = 50 ; faults.no-gps = true",
                                   "00:00:40.000  faults.loss = 0 ; drop-clients ; tack ; Voilà",
                                   "01:01:01.005  Fini"));
    EXPECT_EQ(status, 0);
    EXPECT_EQ(end, 1h + 1min + 1s + 5ms);
}

TEST_F(ScenarioRunnerTest, playsWhatIsDueAtTheStartAtOnce) {
    play("steps: [{at: 0s, do: stop}, {after: 0s, say: a}, {at: 0s, end: true}]\n");
    EXPECT_THAT(lines, ElementsAre("00:00:00.000  stop", "00:00:00.000  a", "00:00:00.000  fin"));
    EXPECT_EQ(status, 0);
    EXPECT_FALSE(assembly.gateway.isRunning);
}

TEST_F(ScenarioRunnerTest, worksInTheOrderSetDoSayExpectEnd) {
    play(
        "steps: [{end: true, expect: {clients: 0}, say: a, do: stop, set: {faults.loss: 5}, at: "
        "1s}]\n");
    machine.advance(1s);
    EXPECT_THAT(lines, ElementsAre("00:00:01.000  faults.loss = 5 ; stop ; a",
                                   "00:00:01.000  clients = 0 : attendu, 0"));
    EXPECT_EQ(status, 0);
}

TEST_F(ScenarioRunnerTest, goesAheadOfWhatIsDueAtTheSameInstant) {
    play("steps: [{at: 1s50ms, end: true}]\n");
    const auto sentDuring = [this](std::chrono::milliseconds span) {
        host.tcp->takeSentences();
        machine.advance(span);
        return host.tcp->takeSentences().size();
    };
    EXPECT_GT(sentDuring(1049ms), 0U);
    EXPECT_EQ(sentDuring(1ms), 0U);
    status.reset();
    run.resume();
    play("steps: [{at: 2s, end: true}]\n");
    EXPECT_GT(sentDuring(1049ms), 0U);
    EXPECT_GT(sentDuring(1ms), 0U);
}

TEST_F(ScenarioRunnerTest, waitsWithinItsTimeForWhatItExpects) {
    play(
        "steps:\n"
        "  - {at: 5s, say: Attendons}\n"
        "  - {within: 20s, expect: {clients: {min: 1}}}\n"
        "  - {after: 1s, end: true}\n");
    machine.advance(17s);
    EXPECT_EQ(lines.size(), 1U);
    connect({"192.168.1.20"});
    machine.advance(49ms);
    EXPECT_EQ(lines.size(), 1U);
    machine.advance(1ms);
    EXPECT_EQ(lines.back(), "00:00:17.050  clients = 1 : attendu, au moins 1");
    machine.advance(1min);
    EXPECT_EQ(lines.back(), "00:00:18.050  fin");
    EXPECT_EQ(status, 0);
}

TEST_F(ScenarioRunnerTest, looksAtOnce) {
    play("steps: [{within: 20s, expect: {clients: 0}, end: true}]\n");
    EXPECT_EQ(status, 0);
    EXPECT_EQ(end, 0s);
}

TEST_F(ScenarioRunnerTest, stillTakesWhatHoldsAtTheDeadline) {
    play("steps: [{within: 125ms, expect: {clients: 1}, end: true}]\n");
    machine.advance(110ms);
    connect({"192.168.1.20"});
    machine.advance(1s);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(end, 125ms);
}

TEST_F(ScenarioRunnerTest, failsWhenTheTimeIsUp) {
    play(
        "steps: [{at: 1s, say: a}, {within: 20s, expect: {clients: {min: 1}}}, {after: 1s, say: "
        "b}]\n");
    machine.advance(1min);
    EXPECT_THAT(lines, ElementsAre("00:00:01.000  a",
                                   "00:00:21.000  clients = 0 : inattendu, il fallait au moins 1",
                                   "ÉCHEC : à 00:00:21.000, clients = 0, il fallait au moins 1."));
    EXPECT_EQ(status, 3);
}

TEST_F(ScenarioRunnerTest, doesTheWorkOfAStepBeforeItWaits) {
    play("steps: [{within: 1s, set: {faults.loss: 5}, say: a, expect: {clients: 1}, end: true}]\n");
    EXPECT_THAT(lines, ElementsAre("00:00:00.000  faults.loss = 5 ; a"));
    connect({"192.168.1.20"});
    machine.advance(50ms);
    EXPECT_THAT(lines, ElementsAre("00:00:00.000  faults.loss = 5 ; a",
                                   "00:00:00.050  clients = 1 : attendu, 1"));
}

TEST_F(ScenarioRunnerTest, expectsThenAndThereWithoutWithin) {
    play(
        "steps: [{at: 1s, expect: {clients: {max: 3}, sog: {min: 1, max: 40}, connections: 1}}]\n");
    host.tcp->accepted = 2;
    machine.advance(1s);
    EXPECT_EQ(status, 3);
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_EQ(lines[0], "00:00:01.000  clients = 0 : attendu, au plus 3");
    EXPECT_THAT(lines[1], testing::ContainsRegex("sog = [0-9.]+ nd : attendu, de 1 à 40 nd"));
    EXPECT_EQ(lines[2], "00:00:01.000  connections = 2 : inattendu, il fallait 1");
    EXPECT_EQ(lines[3], "ÉCHEC : à 00:00:01.000, connections = 2, il fallait 1.");
}

TEST_F(ScenarioRunnerTest, failsWhereAValueCannotBeJudgedAfterAll) {
    play(
        "set: {boat.mode: anchor}\n"
        "steps: [{at: 1s, expect: {anchor-distance: {min: 1}}}, {at: 2s, expect: {anchor-distance: "
        "{min: 1}}}]\n");
    machine.advance(1500ms);
    EXPECT_FALSE(status);
    assembly.engine.mode = simulation::ControlMode::manual;  // by hand
    machine.advance(1s);
    EXPECT_EQ(
        lines.back(),
        "ÉCHEC : à 00:00:02.000, anchor-distance ne peut être jugé, il fallait au moins 1 m.");
    EXPECT_EQ(status, 3);
}

TEST_F(ScenarioRunnerTest, playsAStepThatIsLateWithTheOneBefore) {
    play(
        "steps:\n"
        "  - {within: 20s, expect: {clients: 1}}\n"
        "  - {at: 5s, say: Plus tard}\n");
    machine.advance(10s);
    connect({"192.168.1.20"});
    machine.advance(50ms);
    EXPECT_EQ(lines.back(), "00:00:10.050  Plus tard");
}

TEST_F(ScenarioRunnerTest, failsWhereAnActionIsRefused) {
    play(
        "steps: [{at: 1s, set: {faults.loss: 5}, do: [tack, gybe, stop], say: a}, {at: 2s, end: "
        "true}]\n");
    machine.advance(10s);
    EXPECT_THAT(
        lines, ElementsAre("00:00:01.000  faults.loss = 5 ; tack ; gybe : Une manœuvre est déjà en "
                           "cours.",
                           "ÉCHEC : à 00:00:01.000, gybe : Une manœuvre est déjà en cours."));
    EXPECT_EQ(status, 3);
    EXPECT_EQ(host.tcp->stops, 1);  // by the end alone
}

TEST_F(ScenarioRunnerTest, failsWhereASettingIsRefusedAfterAll) {
    play("steps: [{at: 1s, set: {wind.low: 17}, say: a}]\n");
    ASSERT_TRUE(assembly.settings.writeTexts({{"wind.high", "12"}}).empty());  // by hand
    machine.advance(1s);
    EXPECT_EQ(status, 3);
    EXPECT_EQ(lines.back(),
              "ÉCHEC : à 00:00:01.000, « wind.low » : le vent ne peut aller de 17 à 12 "
              "nd ; il faut que wind.low soit inférieur à wind.high.");
}

TEST_F(ScenarioRunnerTest, failsWhereAStartFails) {
    play("steps: [{at: 1s, do: stop}, {at: 2s, do: start}]\n");
    host.tcp->startFailure = network::StartFailure{"system", 13, "Permission non accordée"};
    machine.advance(2s);
    EXPECT_THAT(lines.back(), testing::StartsWith("ÉCHEC : à 00:00:02.000, start : TCP 2000 : "));
    EXPECT_EQ(status, 3);
    EXPECT_FALSE(runner->stoppedOnPurpose());
}

TEST_F(ScenarioRunnerTest, saysWhatActsAtTheNextStartAndKeepsTheClockThroughIt) {
    play(
        "steps:\n"
        "  - {at: 1s, set: {network.tcp-port: 3000}}\n"
        "  - {at: 2s, do: restart}\n"
        "  - {at: 3s, do: stop, set: {network.tcp-port: 4000}}\n"
        "  - {at: 4s, set: {network.tcp-port: 5000}, do: start}\n");
    machine.advance(1s);
    EXPECT_THAT(host.tcp->startedPorts, ElementsAre(2000));
    machine.advance(9s);
    EXPECT_THAT(host.tcp->startedPorts, ElementsAre(2000, 3000, 5000));
    EXPECT_THAT(lines,
                ElementsAre("00:00:01.000  network.tcp-port = 3000 (au prochain démarrage)",
                            "00:00:02.000  restart",
                            "00:00:03.000  network.tcp-port = 4000 (au prochain démarrage) ; "
                            "stop",
                            "00:00:04.000  network.tcp-port = 5000 ; start"));
}

TEST_F(ScenarioRunnerTest, knowsWhetherAStopWasWanted) {
    play("steps: [{at: 1s, do: stop}, {at: 2s, do: start}]\n");
    EXPECT_FALSE(runner->stoppedOnPurpose());
    machine.advance(1s);
    EXPECT_TRUE(runner->stoppedOnPurpose());
    machine.advance(1s);
    EXPECT_FALSE(runner->stoppedOnPurpose());
    host.tcp->onFailed("");
    EXPECT_FALSE(assembly.gateway.isRunning);
    EXPECT_FALSE(runner->stoppedOnPurpose());
}

TEST_F(ScenarioRunnerTest, letsTheRunGoOnWithoutAnEnd) {
    play("steps: [{at: 1s, say: a}]\n");
    machine.advance(10min);
    EXPECT_FALSE(status);
    EXPECT_TRUE(assembly.gateway.isRunning);
}

TEST_F(ScenarioRunnerTest, playsNothingAfterTheEnd) {
    play("steps: [{at: 1s, end: true}, {at: 1s, say: a}, {at: 2s, say: b}]\n");
    machine.advance(1s);
    run.resume();
    assembly.gateway.start();
    machine.advance(10s);
    EXPECT_THAT(lines, ElementsAre("00:00:01.000  fin"));
}

TEST_F(ScenarioRunnerTest, playsManyStepsAtOneInstant) {
    std::string steps = "steps:\n";
    for (int i = 0; i < 20'000; ++i) steps += "- {at: 1s, say: a}\n";
    play(steps);
    machine.advance(1s);
    EXPECT_EQ(lines.size(), 20'000U);
}

TEST_F(ScenarioRunnerTest, holdsNothingUpOnceItIsGone) {
    play("steps: [{at: 1s, say: a}]\n");
    runner.reset();
    machine.advance(2s);
    EXPECT_THAT(lines, IsEmpty());
}

/// One of those that come with the program.
struct ShippedScenarioTest : ScenarioRunnerTest, testing::WithParamInterface<std::string> {};

TEST_P(ShippedScenarioTest, endsWellWithAnAppThatConnectsAgain) {
    const auto app = this->app();
    play(*readScenarioFile(GetParam(), {}).scenario);
    machine.advance(1h);
    EXPECT_EQ(status, 0) << lines.back();
}

TEST_P(ShippedScenarioTest, failsWithoutAnApp) {
    play(*readScenarioFile(GetParam(), {}).scenario);
    machine.advance(1h);
    EXPECT_EQ(status, 3) << lines.back();
}

std::vector<std::string> shippedScenarios() {
    std::vector<std::string> paths;
    for (const auto& each : std::filesystem::directory_iterator(TIDEWRIGHT_SCENARIOS))
        paths.push_back(each.path());
    return paths;
}

std::string nameOf(const testing::TestParamInfo<std::string>& shipped) {
    std::string name = std::filesystem::path(shipped.param).stem();
    std::ranges::replace(name, '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(All, ShippedScenarioTest, testing::ValuesIn(shippedScenarios()), nameOf);

}  // namespace
}  // namespace tidewright::scenario
