#include "app/CommandLine.h"

#include <gtest/gtest.h>

#include <clocale>
#include <locale>

#include "platform/VirtualMainLoop.h"
#include "support/ScriptedRandom.h"

namespace tidewright::app {
namespace {

struct CommandLineTest : testing::Test {
    platform::VirtualMainLoop loop;
    ScriptedRandom random;
    simulation::BoatSimulationEngine engine{loop, random};
    gateway::SimulationConfig config;

    void apply(Arguments options) {
        options.insert(options.begin(), {"tidewright", "--headless"});
        CommandLine::apply(options, config, engine);
    }
};

TEST_F(CommandLineTest, takesWhateverFollowsTheFirstOccurrence) {
    const Arguments arguments{"tidewright", "--udp-port", "--tcp-port", "2500", "--tcp-port", "1"};
    EXPECT_EQ(CommandLine::value("--udp-port", arguments), "--tcp-port");
    EXPECT_EQ(CommandLine::value("--tcp-port", arguments), "2500");
    EXPECT_EQ(CommandLine::value("1", arguments), std::nullopt);
    EXPECT_EQ(CommandLine::value("--ais", arguments), std::nullopt);
}

TEST_F(CommandLineTest, leavesTheDefaultsWithoutOptions) {
    apply({});
    EXPECT_EQ(config.preset->id, "digital-yacht");
    EXPECT_EQ(config.tcpPort, 2000);
    EXPECT_EQ(config.udpPort, 2000);
    EXPECT_EQ(config.aisTargetCount, 5);
}

TEST_F(CommandLineTest, letsThePortOptionWinOverThePresetWhereverItStands) {
    for (const Arguments& order : {Arguments{"--preset", "yacht-devices", "--tcp-port", "3000"},
                                   Arguments{"--tcp-port", "3000", "--preset", "yacht-devices"}}) {
        apply(order);
        EXPECT_EQ(config.tcpPort, 3000);
        EXPECT_EQ(config.udpPort, 1456);
    }
}

TEST_F(CommandLineTest, keepsThePortWhenItCannotReadTheNewOne) {
    for (const char* text : {"70000", "abc", "", " 1", "1 ", "-1", "0x10", "+-5", "++5", "1e3"}) {
        apply({"--tcp-port", text});
        EXPECT_EQ(config.tcpPort, 2000) << text;
    }
    apply({"--tcp-port"});
    EXPECT_EQ(config.tcpPort, 2000);
}

TEST_F(CommandLineTest, readsSignedPorts) {
    EXPECT_EQ(CommandLine::port("+2001"), 2001);
    EXPECT_EQ(CommandLine::port("-0"), 0);
    EXPECT_EQ(CommandLine::port("65535"), 65535);
    EXPECT_EQ(CommandLine::port("65536"), std::nullopt);
}

TEST_F(CommandLineTest, takesAnyNumberOfVesselsThatSixtyFourBitsHold) {
    apply({"--ais", "-3"});
    EXPECT_EQ(config.aisTargetCount, -3);
    apply({"--ais", "9223372036854775808"});
    EXPECT_EQ(config.aisTargetCount, -3);
    EXPECT_TRUE(config.ais);
}

TEST_F(CommandLineTest, beginsTheProgrammeThatItNames) {
    apply({"--program", "reach"});
    EXPECT_EQ(engine.program, simulation::SailingProgram::reach);
    EXPECT_EQ(engine.sailing().leg.sail, simulation::PointOfSail::closeReach);
    apply({"--program", "Beat"});
    EXPECT_EQ(engine.program, simulation::SailingProgram::reach);
}

TEST_F(CommandLineTest, ignoresARangeThatIsReversedOrNotTwoNumbers) {
    for (const char* text : {"16-8", "8", "8-8", "8-16-20", "", "8 - 16", "8,5-16", "inf-nan"}) {
        apply({"--wind-range", text});
        EXPECT_EQ(engine.environment, simulation::SailingEnvironment()) << text;
    }
}

TEST_F(CommandLineTest, choosesTheCustomWindWithARange) {
    apply({"--wind-range", "8-16"});
    EXPECT_EQ(engine.environment->windPreset, simulation::WindPreset::custom);
    EXPECT_EQ(engine.environment->customMin, 8);
    EXPECT_EQ(engine.environment->customMax, 16);
    EXPECT_EQ(engine.sailing().environment, engine.environment);
}

TEST_F(CommandLineTest, passesOverPiecesOfARangeThatAreNoNumbers) {
    apply({"--wind-range", "--abc-3.5--.5e1-"});
    EXPECT_EQ(engine.environment->customMin, 3.5);
    EXPECT_EQ(engine.environment->customMax, 5);
}

TEST_F(CommandLineTest, clampsThePerformance) {
    for (const auto& [text, performance] :
         {std::pair{"50", 0.7}, {"100", 1.0}, {"130", 1.15}, {"-20", 0.7}, {"82.5", 0.825}}) {
        apply({"--polar", text});
        EXPECT_EQ(engine.environment->performance, performance) << text;
    }
}

TEST_F(CommandLineTest, readsNothingButDecimalNumbers) {
    for (const char* text : {"", " 95", "95 ", "95%", "95,5", "inf", "nan", "0x5F", "1e", "+", ".",
                             "--5", "+-5", "1e999", "9_5"})
        EXPECT_EQ(CommandLine::decimal(text), std::nullopt) << text;
    EXPECT_EQ(CommandLine::decimal("+9.5e1"), 95);
    EXPECT_EQ(CommandLine::decimal("95."), 95);
    EXPECT_EQ(CommandLine::decimal("-.5"), -0.5);
}

struct CommaPoint : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
};

TEST_F(CommandLineTest, readsAPointInEveryLocale) {
    const std::locale before = std::locale::global(std::locale(std::locale(), new CommaPoint));
    std::setlocale(LC_ALL, "fr_FR.UTF-8");
    EXPECT_EQ(CommandLine::decimal("95.5"), 95.5);
    EXPECT_EQ(CommandLine::decimal("95,5"), std::nullopt);
    std::setlocale(LC_ALL, "C");
    std::locale::global(before);
}

TEST_F(CommandLineTest, switchesTheCrewStepsOff) {
    apply({"--no-steps"});
    EXPECT_FALSE(engine.environment->crewSteps);
    EXPECT_FALSE(engine.sailing().environment.crewSteps);
}

TEST_F(CommandLineTest, switchesOutputsOffAfterThePreset) {
    apply({"--no-tcp", "--no-udp", "--preset", "nke"});
    EXPECT_FALSE(config.tcpEnabled);
    EXPECT_FALSE(config.udpEnabled);
}

}  // namespace
}  // namespace tidewright::app
