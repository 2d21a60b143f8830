#include "app/RunPlan.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "platform/PacedMainLoop.h"

namespace tidewright::app {
namespace {
using namespace std::chrono_literals;

RunPlan plan(Arguments options) {
    options.insert(options.begin(), {"tidewright", "--headless"});
    EXPECT_EQ(CommandLine::problem(options), std::nullopt);
    return RunPlan::of(options);
}

std::optional<std::string> problem(Arguments options,
                                   const gateway::Settings::Texts& scenarioSettings = {}) {
    options.insert(options.begin(), {"tidewright", "--headless"});
    EXPECT_EQ(CommandLine::problem(options), std::nullopt);
    return RunPlan::of(options).problem(options, scenarioSettings);
}

TEST(RunPlanTest, readsEverythingThatMakesARunItsOwn) {
    const RunPlan all =
        plan({"--seed", "18446744073709551615", "--start=2026-06-01T12:00:00Z", "--speed", "10",
              "--duration", "1h30m", "--output", "log", "--free-port", "--replay", "old",
              "--replay-loop", "--scenario", "story.yaml"});
    EXPECT_EQ(all.seed, 18446744073709551615U);
    EXPECT_EQ(all.start,
              platform::WallTime(std::chrono::sys_days{std::chrono::June / 1 / 2026} + 12h));
    EXPECT_EQ(all.speed, 10);
    EXPECT_EQ(all.duration, 90min);
    EXPECT_EQ(all.output, "log");
    EXPECT_EQ(all.replay, "old");
    EXPECT_EQ(all.scenario, "story.yaml");
    EXPECT_TRUE(all.loopsReplay);
    EXPECT_TRUE(all.picksTcpPort);
}

TEST(RunPlanTest, leavesTheMachineItsClockWithoutThem) {
    EXPECT_FALSE(plan({}).hasOwnClock());
    EXPECT_FALSE(plan({"--output", "log", "--free-port", "--set", "ais.count=3"}).hasOwnClock());
}

TEST(RunPlanTest, hasAClockOfItsOwnWithAnyOfSix) {
    EXPECT_TRUE(plan({"--seed", "0"}).hasOwnClock());
    EXPECT_TRUE(plan({"--start", "2026-06-01T12:00:00Z"}).hasOwnClock());
    EXPECT_TRUE(plan({"--speed", "1"}).hasOwnClock());
    EXPECT_TRUE(plan({"--duration", "1s"}).hasOwnClock());
    EXPECT_TRUE(plan({"--replay", "log"}).hasOwnClock());
    EXPECT_TRUE(plan({"--scenario", "story.yaml"}).hasOwnClock());
}

TEST(RunPlanTest, feedsAFileAloneAsFastAsTheMachineCan) {
    EXPECT_TRUE(plan({"--speed", "max", "--output", "log"}).isUnpaced());
    EXPECT_EQ(problem({"--speed", "max", "--output", "log"}), std::nullopt);
    EXPECT_EQ(problem({"--speed", "max"}),
              "--speed max n'alimente qu'un fichier : il faut aussi --output.");
}

TEST(RunPlanTest, refusesANetworkAtThatSpeed) {
    const auto refusal = [](const std::string& name) {
        return "--speed max coupe TCP et UDP : " + name + " ne va pas avec.";
    };
    const auto beside = [](Arguments options) {
        options.insert(options.begin(), {"--speed", "max", "--output", "log"});
        return problem(options);
    };
    EXPECT_EQ(beside({"--free-port"}), refusal("--free-port"));
    EXPECT_EQ(beside({"--tcp-port", "3000"}), refusal("--tcp-port"));
    EXPECT_EQ(beside({"--udp-port", "3000"}), refusal("--udp-port"));
    for (const char* setting :
         {"network.tcp=true", "network.udp=true", "network.tcp-port=3000", "network.udp-port=3000"})
        EXPECT_EQ(beside({"--set", setting}),
                  refusal(std::string(setting).substr(0, std::string(setting).find('='))));
    EXPECT_EQ(beside({"--set", "network.tcp=false", "--no-udp", "--preset", "nke"}), std::nullopt);
    EXPECT_EQ(problem({"--speed", "max", "--output", "log"}, {{"network.udp", "true"}}),
              refusal("network.udp"));
}

TEST(RunPlanTest, repeatsOnlyAFileThatIsReplayed) {
    EXPECT_EQ(problem({"--replay-loop"}), "--replay-loop ne va qu'avec --replay.");
    EXPECT_EQ(problem({"--replay", "-", "--replay-loop"}),
              "L'entrée standard ne peut être relue : --replay-loop veut un fichier.");
    EXPECT_EQ(problem({"--replay", "log", "--replay-loop"}), std::nullopt);
}

TEST(RunPlanTest, neverRecordsOverWhatItReplays) {
    const auto log = std::filesystem::temp_directory_path() / "tidewright-run-plan-test";
    std::ofstream(log) << "$one\r\n";
    const std::string detour = log.parent_path() / "." / log.filename();
    EXPECT_EQ(problem({"--replay", log, "--output", detour}),
              "--replay et --output nomment le même fichier.");
    std::filesystem::remove(log);
    EXPECT_EQ(problem({"--replay", log, "--output", detour}), std::nullopt);
}

}  // namespace
}  // namespace tidewright::app
