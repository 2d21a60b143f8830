#include "app/HeadlessRunner.h"

#include <gtest/gtest.h>

#include "platform/PacedMainLoop.h"
#include "platform/VirtualMainLoop.h"
#include "support/PretendHost.h"
#include "support/ScriptedLines.h"
#include "support/ScriptedRandom.h"

namespace tidewright::app {
namespace {
using namespace std::chrono_literals;

struct HeadlessRunnerTest : testing::Test {
    platform::VirtualMainLoop loop;
    ScriptedRandom random;
    PretendHost host;
    std::string written;
    int status = 0;  ///< 0: still runs

    HeadlessRunner run(Arguments options) {
        options.insert(options.begin(), {"tidewright", "--headless"});
        return HeadlessRunner(options, host.host(loop, random),
                              {.write = [this](std::string_view text) { written += text; },
                               .end = [this](int its) { status = its; }},
                              {});
    }
};

TEST_F(HeadlessRunnerTest, showsWhereToConnect) {
    const auto runner = run({});
    EXPECT_EQ(written,
              "Tidewright — headless\n"
              "  TCP  192.168.1.37:2000\n"
              "  UDP  broadcast 192.168.1.255:2000\n"
              "  AIS  5 targets\n"
              "  Ctrl-C pour arrêter.\n");
}

TEST_F(HeadlessRunnerTest, showsPlaceholdersWithoutANetwork) {
    host.interface.reset();
    const auto runner = run({"--ais", "0"});
    EXPECT_EQ(written,
              "Tidewright — headless\n"
              "  TCP  0.0.0.0:2000\n"
              "  UDP  broadcast 255.255.255.255:2000\n"
              "  AIS  0 targets\n"
              "  Ctrl-C pour arrêter.\n");
}

TEST_F(HeadlessRunnerTest, writesNothingMoreWhileAllIsWell) {
    const auto runner = run({});
    written.clear();
    loop.advance(1h);
    EXPECT_EQ(written, "");
    EXPECT_EQ(status, 0);
    EXPECT_GT(host.tcp->sentences.size(), 27 * 3600);
}

TEST_F(HeadlessRunnerTest, failsASecondLaterWithoutAnyOutput) {
    const auto runner = run({"--no-tcp", "--no-udp"});
    EXPECT_EQ(written, "Tidewright — headless\n  AIS  5 targets\n  Ctrl-C pour arrêter.\n");
    written.clear();
    loop.advance(999ms);
    EXPECT_EQ(status, 0);
    loop.advance(1ms);
    EXPECT_EQ(status, 1);
    EXPECT_EQ(written, "ERREUR : Activez au moins une sortie (TCP ou UDP).\n");
}

TEST_F(HeadlessRunnerTest, failsAtTheNextLookWhenThePortIsTaken) {
    const auto runner = run({"--tcp-port", "2345"});
    written.clear();
    loop.advance(2500ms);
    host.tcp->onFailed("Address already in use");
    loop.advance(500ms);
    EXPECT_EQ(status, 1);
    EXPECT_EQ(written,
              "ERREUR : Le port TCP 2345 est déjà utilisé : une autre instance du simulateur "
              "tourne probablement. Quittez-la (ou changez de port), puis relancez.\n");
}

TEST_F(HeadlessRunnerTest, saysThatMemoryLacksForTheFleet) {
    const auto runner = run({"--ais", "9223372036854775807"});
    written.clear();
    loop.advance(1s);
    EXPECT_EQ(status, 1);
    EXPECT_EQ(written, "ERREUR : Mémoire insuffisante pour 9223372036854775807 cibles AIS.\n");
}

const std::vector<std::string> noLines;

/// A run with a clock of its own, on a machine whose time passes when the test says so.
struct PacedRunTest : testing::Test {
    platform::VirtualMainLoop machine;
    platform::PacedMainLoop clock{machine, platform::WallTime(0s), 10};
    ScriptedRandom random;
    PretendHost host;
    std::string written;
    std::optional<int> status;

    HeadlessRunner run(Arguments options, std::unique_ptr<network::LineSource> replay = {}) {
        options.insert(options.begin(), {"tidewright", "--headless"});
        RunPlan plan = RunPlan::of(options);
        plan.seed = plan.seed.value_or(7);
        plan.start = clock.wallClock();
        plan.speed = 10;
        return HeadlessRunner(options, host.host(clock, random),
                              {.write = [this](std::string_view text) { written += text; },
                               .end = [this](int its) { status = its; }},
                              {.plan = plan,
                               .clock = &clock,
                               .replay = std::move(replay),
                               .hold = [this] { clock.hold(); },
                               .resume = [this] { clock.resume(); }});
    }
};

TEST_F(PacedRunTest, showsItsSeedAndItsClock) {
    const auto runner = run({"--duration", "1m", "--no-udp"});
    EXPECT_EQ(written,
              "Tidewright — headless\n"
              "  TCP  192.168.1.37:2000\n"
              "  AIS  5 targets\n"
              "  SEED  7\n"
              "  CLOCK  1970-01-01T00:00:00Z × 10\n"
              "  Ctrl-C pour arrêter.\n");
}

TEST_F(PacedRunTest, showsThePortThatWasPickedAndNoUdpUnlessAskedFor) {
    host.utcOffset = 2h;
    const auto runner = run({"--free-port", "--tcp-port", "3000", "--duration", "1m"});
    EXPECT_NE(written.find("  TCP  192.168.1.37:50000\n"), std::string::npos);
    EXPECT_EQ(written.find("  UDP"), std::string::npos);
    EXPECT_EQ(host.tcp->startedPorts, (std::vector<std::uint16_t>{0}));
}

TEST_F(PacedRunTest, broadcastsBesideAFreePortWhereThatIsAskedFor) {
    const auto runner = run({"--free-port", "--set", "network.udp=true"});
    EXPECT_NE(written.find("  UDP  broadcast 192.168.1.255:2000\n"), std::string::npos);
}

TEST_F(PacedRunTest, endsAfterItsDurationBeforeWhatIsDueThen) {
    const auto runner = run({"--duration", "10s"});
    machine.advance(999ms);
    EXPECT_EQ(status, std::nullopt);
    machine.advance(1ms);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(host.tcp->sentences.size(), 272U);
    machine.advance(10s);
    EXPECT_EQ(host.tcp->sentences.size(), 272U);
    EXPECT_FALSE(runner.assembly().gateway.isRunning);
}

TEST_F(PacedRunTest, dropsWhatLatencyStillHoldsAtItsEnd) {
    const auto runner = run({"--duration", "10s", "--set", "faults.latency=1000"});
    machine.advance(2s);
    EXPECT_EQ(host.tcp->sentences.size(), 246U);  // what was emitted before 9 s
}

TEST_F(PacedRunTest, failsAtItsEndWhereTheStartFailed) {
    const auto runner = run({"--duration", "1s", "--no-tcp", "--no-udp"});
    written.clear();
    machine.advance(100ms);
    EXPECT_EQ(status, 1);
    EXPECT_EQ(written, "ERREUR : Activez au moins une sortie (TCP ou UDP).\n");
}

TEST_F(PacedRunTest, showsUtcInTheConsole) {
    host.utcOffset = 2h;
    const auto runner = run({"--duration", "1h"});
    EXPECT_EQ(runner.assembly().gateway.consoleLines().front().time, "00:00:00");
}

TEST_F(PacedRunTest, saysWhichSourceHeldNoLine) {
    const auto runner = run({"--replay", "-"}, std::make_unique<network::ScriptedLines>(noLines));
    machine.advance(1s);
    EXPECT_EQ(status, 2);
    EXPECT_TRUE(written.ends_with("\nERREUR : L'entrée standard ne contient aucune ligne.\n"));
}

TEST_F(PacedRunTest, namesTheFileThatHeldNoLine) {
    const auto runner =
        run({"--replay", "pipe"}, std::make_unique<network::ScriptedLines>(noLines));
    machine.advance(1s);
    EXPECT_EQ(status, 2);
    EXPECT_TRUE(written.ends_with("\nERREUR : « pipe » ne contient aucune ligne.\n"));
}

TEST_F(PacedRunTest, refusesARecordingThatCannotBeginAndStartsNothing) {
    const auto runner = run({"--output", "/"});
    EXPECT_EQ(status, 1);
    EXPECT_EQ(written, "ERREUR : L'enregistrement dans / ne peut commencer : c'est un dossier.\n");
    EXPECT_TRUE(host.tcp->startedPorts.empty());
}

}  // namespace
}  // namespace tidewright::app
