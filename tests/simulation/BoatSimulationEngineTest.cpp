#include "simulation/BoatSimulationEngine.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <new>

#include "platform/VirtualMainLoop.h"
#include "simulation/EarthModel.h"
#include "support/ScriptedRandom.h"

namespace tidewright::simulation {
namespace {
using namespace std::chrono_literals;

constexpr platform::WallTime start = std::chrono::sys_days{std::chrono::June / 1 / 2026} + 10h;

/// Degrees of longitude run in so many seconds at six knots due east, at home.
double eastward(double seconds) {
    return seconds * 6 * 1852 / 3600 / metresPerDegreeOfLongitude(47.4);
}

struct BoatSimulationEngineTest : testing::Test {
    platform::VirtualMainLoop loop{start};
    ScriptedRandom random;
    BoatSimulationEngine engine{loop, random};

    /// Six knots due east from home.
    void startEastward() {
        engine.mode = ControlMode::manual;
        engine.manual = {.sog = 6, .heading = 90};
        engine.start(0);
    }
    double longitudeRun() const { return engine.state->longitude + 3.55; }
};

TEST_F(BoatSimulationEngineTest, liesIdleAtHomeUntilStarted) {
    loop.advance(10s);
    EXPECT_EQ(engine.state, BoatState::starting(start));
    EXPECT_EQ(engine.mode, ControlMode::auto_);
    EXPECT_EQ(engine.program, SailingProgram::sequence);
    EXPECT_EQ(engine.environment, SailingEnvironment{});
    EXPECT_EQ(engine.autoStatus.get(), "");
    EXPECT_FALSE(engine.anchor());
    EXPECT_FALSE(engine.isTicking());
}

TEST_F(BoatSimulationEngineTest, primesTheBoatAtHomeOnStart) {
    loop.advance(3s);
    engine.start(0);
    EXPECT_EQ(engine.state->latitude, 47.4);
    EXPECT_EQ(engine.state->longitude, -3.55);
    EXPECT_EQ(engine.state->timestamp, start + 3s);
    EXPECT_EQ(engine.state->heading,
              wrap360(engine.sailing().wind.direction - engine.state->trueWindAngle));
    EXPECT_EQ(engine.autoStatus.get(), engine.sailing().statusLine());
    EXPECT_TRUE(engine.isTicking());
}

TEST_F(BoatSimulationEngineTest, sailsFromTheFirstTickOn) {
    engine.start(0);
    const BoatState before = engine.state;
    loop.advance(100ms);
    EXPECT_NEAR(engine.sailing().time, 0.1, 1e-9);
    EXPECT_NE(engine.state->latitude, before.latitude);
    EXPECT_EQ(engine.state->timestamp, start + 100ms);
}

TEST_F(BoatSimulationEngineTest, ticksTenTimesASecond) {
    engine.start(0);
    loop.advance(1h);
    EXPECT_NEAR(engine.sailing().time, 3600, 1e-6);
    loop.advance(99ms);
    EXPECT_NEAR(engine.sailing().time, 3600, 1e-6);
}

TEST_F(BoatSimulationEngineTest, appliesTheManualTargetsOnEveryTick) {
    startEastward();
    loop.advance(1s);
    EXPECT_NEAR(longitudeRun(), eastward(1), 1e-12);
    EXPECT_NEAR(engine.state->latitude, 47.4, 1e-12);
    engine.manual = {.heading = -30, .windAngle = 270};
    loop.advance(100ms);
    EXPECT_EQ(engine.state->heading, 330);
    EXPECT_EQ(engine.state->apparentWindAngle, -90);
}

TEST_F(BoatSimulationEngineTest, leavesOutAStepOfTwoSecondsAndGoesOnFromThere) {
    startEastward();
    loop.stall(2s);
    const BoatState before = engine.state;
    loop.advance(0s);
    EXPECT_EQ(engine.state, before);
    loop.advance(100ms);
    EXPECT_NEAR(longitudeRun(), eastward(0.1), 1e-12);
}

TEST_F(BoatSimulationEngineTest, makesUpForAnythingShorter) {
    startEastward();
    loop.stall(1990ms);
    loop.advance(0s);
    EXPECT_NEAR(longitudeRun(), eastward(1.99), 1e-12);
}

TEST_F(BoatSimulationEngineTest, leavesOutAStepOfNoTime) {
    startEastward();
    const BoatState before = engine.state;
    engine.tick();
    EXPECT_EQ(engine.state, before);
}

TEST_F(BoatSimulationEngineTest, sailsOnWhenSomebodySetsTheWallClock) {
    startEastward();
    loop.stepWallClock(-1h);
    loop.advance(1s);
    EXPECT_NEAR(longitudeRun(), eastward(1), 1e-12);
    EXPECT_EQ(engine.state->timestamp, start - 1h + 1s);
}

TEST_F(BoatSimulationEngineTest, dropsTheAnchorWhereTheBoatIs) {
    startEastward();
    loop.advance(60s);
    engine.mode = ControlMode::anchor;
    ASSERT_TRUE(engine.anchor());
    EXPECT_EQ(engine.anchor()->previousLongitude, engine.state->longitude);
    loop.advance(100ms);
    EXPECT_LT(engine.state->sog, 0.1);
    EXPECT_NEAR(longitudeRun(), eastward(60), 1e-7);
}

TEST_F(BoatSimulationEngineTest, dropsANewAnchorOnComingBack) {
    startEastward();
    engine.mode = ControlMode::anchor;
    const AnchorSimulation first = *engine.anchor();
    engine.mode = ControlMode::manual;
    EXPECT_TRUE(engine.anchor());
    loop.advance(60s);
    engine.mode = ControlMode::anchor;
    EXPECT_NEAR(engine.anchor()->anchorLongitude - first.anchorLongitude, eastward(60), 1e-9);
    EXPECT_EQ(engine.anchor()->elapsed, 0);
}

TEST_F(BoatSimulationEngineTest, keepsTheAnchorWhenTheModeIsAssignedAgain) {
    engine.mode = ControlMode::anchor;
    engine.start(0);
    loop.advance(5s);
    engine.mode = ControlMode::anchor;
    EXPECT_NEAR(engine.anchor()->elapsed, 5, 1e-9);
}

TEST_F(BoatSimulationEngineTest, readsTheAnchorSettingsOnEveryTick) {
    engine.mode = ControlMode::anchor;
    engine.start(0);
    engine.anchorSettings = {.windSpeed = 33};
    loop.advance(100ms);
    EXPECT_EQ(engine.state->trueWindSpeed, 33);
}

TEST_F(BoatSimulationEngineTest, takesTheHelmOverOnComingBackToAutomatic) {
    engine.start(0);
    engine.mode = ControlMode::auto_;
    EXPECT_FALSE(engine.sailing().needsResync);
    engine.mode = ControlMode::manual;
    EXPECT_FALSE(engine.sailing().needsResync);
    engine.mode = ControlMode::auto_;
    EXPECT_TRUE(engine.sailing().needsResync);
    loop.advance(100ms);
    EXPECT_FALSE(engine.sailing().needsResync);
}

TEST_F(BoatSimulationEngineTest, refusesAManoeuvreOutsideAutomaticMode) {
    engine.start(0);
    const std::string status = engine.autoStatus;
    for (const ControlMode mode : {ControlMode::manual, ControlMode::anchor}) {
        engine.mode = mode;
        EXPECT_FALSE(engine.triggerManeuver(Maneuver::tack));
        EXPECT_FALSE(engine.triggerManeuver(Maneuver::gybe));
    }
    EXPECT_EQ(engine.autoStatus.get(), status);
    EXPECT_FALSE(engine.sailing().maneuvering);
}

TEST_F(BoatSimulationEngineTest, showsAManoeuvreAtOnce) {
    engine.start(0);
    EXPECT_TRUE(engine.triggerManeuver(Maneuver::gybe));
    EXPECT_NE(engine.autoStatus->find("empannage en cours"), std::string::npos);
    const std::string status = engine.autoStatus;
    EXPECT_FALSE(engine.triggerManeuver(Maneuver::tack));
    EXPECT_EQ(engine.autoStatus.get(), status);
}

TEST_F(BoatSimulationEngineTest, beginsAnotherProgrammeWithItsFirstLeg) {
    engine.start(0);
    loop.advance(10min);
    engine.program = SailingProgram::run;
    EXPECT_EQ(engine.sailing().program, SailingProgram::run);
    EXPECT_EQ(engine.sailing().legIndex, 0);
    EXPECT_EQ(engine.sailing().legElapsed, 0);
    EXPECT_EQ(engine.sailing().leg.sail, PointOfSail::run);
}

TEST_F(BoatSimulationEngineTest, sailsOnWhenTheSameProgrammeIsAssignedAgain) {
    engine.start(0);
    loop.advance(10s);
    const auto chance = engine.sailing().rng.state;
    engine.program = SailingProgram::sequence;
    EXPECT_NEAR(engine.sailing().legElapsed, 10, 1e-9);
    EXPECT_EQ(engine.sailing().rng.state, chance);
}

TEST_F(BoatSimulationEngineTest, passesTheEnvironmentOn) {
    engine.start(0);
    engine.environment = {.windPreset = WindPreset::strong, .performance = 0.8};
    EXPECT_EQ(engine.sailing().environment, engine.environment);
    EXPECT_GE(engine.sailing().wind.zoneSpeed, 23);
    EXPECT_LT(engine.sailing().wind.speedSmooth, 17);
}

TEST_F(BoatSimulationEngineTest, keepsModeAndSettingsOverAnotherStart) {
    startEastward();
    engine.program = SailingProgram::reach;
    engine.environment = {.windPreset = WindPreset::light};
    loop.advance(60s);
    engine.start(0);
    EXPECT_EQ(longitudeRun(), 0);
    EXPECT_EQ(engine.mode, ControlMode::manual);
    EXPECT_EQ(engine.manual->heading, 90);
    EXPECT_EQ(engine.sailing().program, SailingProgram::reach);
    EXPECT_EQ(engine.sailing().environment.windPreset, WindPreset::light);
    EXPECT_EQ(engine.sailing().time, 0);
}

TEST_F(BoatSimulationEngineTest, ticksOnceHoweverOftenItIsStarted) {
    startEastward();
    engine.start(0);
    loop.advance(1s);
    EXPECT_NEAR(longitudeRun(), eastward(1), 1e-12);
}

TEST_F(BoatSimulationEngineTest, weighsAnOldAnchorOnStartAndDropsOneAtHomeInAnchorMode) {
    startEastward();
    loop.advance(60s);
    engine.mode = ControlMode::anchor;
    engine.start(0);
    EXPECT_EQ(engine.anchor()->previousLongitude, -3.55);
    engine.mode = ControlMode::manual;
    engine.start(0);
    EXPECT_FALSE(engine.anchor());
}

TEST_F(BoatSimulationEngineTest, countsTheFirstStepFromTheStart) {
    engine.mode = ControlMode::manual;
    loop.advance(1950ms);
    engine.start(0);
    loop.advance(100ms);
    EXPECT_NEAR(engine.state->sog * 0.1 * 1852 / 3600,
                std::hypot((engine.state->latitude - 47.4) * 111320,
                           longitudeRun() * metresPerDegreeOfLongitude(47.4)),
                1e-6);
}

TEST_F(BoatSimulationEngineTest, freezesWhenStopped) {
    engine.start(2);
    loop.advance(1s);
    engine.stop();
    const BoatState before = engine.state;
    loop.advance(10s);
    EXPECT_EQ(engine.state, before);
    EXPECT_FALSE(engine.isTicking());
    EXPECT_EQ(engine.traffic.targets.size(), 2U);
}

TEST_F(BoatSimulationEngineTest, tellsItsObserversOncePerTickAndOncePerNewStatus) {
    engine.start(0);
    int told = 0;
    int expected = 0;
    const auto subscription = engine.observe([&] { ++told; });
    for (int i = 0; i < 100; ++i) {
        const std::string status = engine.autoStatus;
        loop.advance(100ms);
        expected += engine.autoStatus.get() == status ? 1 : 2;
    }
    EXPECT_EQ(told, expected);
    EXPECT_LT(expected, 150);
}

TEST_F(BoatSimulationEngineTest, tellsItsObserversOfNewVesselsWhileStoppedToo) {
    std::size_t seen = 0;
    const auto subscription = engine.observe([&] { seen = engine.traffic.targets.size(); });
    engine.setAISTargets(3);
    EXPECT_EQ(seen, 3U);
}

TEST_F(BoatSimulationEngineTest, movesTheVesselsInEveryMode) {
    random.numbers = {0, 1, 0, 10};
    engine.start(1);
    for (const ControlMode mode : allControlModes) {
        engine.mode = mode;
        const double before = engine.traffic.targets.front().latitude;
        loop.advance(100ms);
        EXPECT_NEAR(engine.traffic.targets.front().latitude - before, 1852 / 3600.0 / 111320, 1e-9);
    }
}

TEST_F(BoatSimulationEngineTest, putsTheVesselsAroundTheBoat) {
    startEastward();
    loop.advance(60s);
    engine.setAISTargets(3);
    ASSERT_EQ(engine.traffic.targets.size(), 3U);
    EXPECT_EQ(engine.traffic.targets.front().longitude, engine.state->longitude);
    engine.start(2);
    ASSERT_EQ(engine.traffic.targets.size(), 2U);
    EXPECT_EQ(engine.traffic.targets.front().longitude, -3.55);
}

TEST_F(BoatSimulationEngineTest, doesNotTickWithAFleetThatMemoryCannotHold) {
    engine.start(1);
    EXPECT_THROW(engine.start(INT64_MAX), std::bad_alloc);
    EXPECT_FALSE(engine.isTicking());
    EXPECT_TRUE(engine.traffic.targets.empty());
    EXPECT_THROW(engine.setAISTargets(INT64_MAX), std::bad_alloc);
}

TEST_F(BoatSimulationEngineTest, leavesWhatAModeDoesNotWriteAsItWas) {
    startEastward();
    engine.manual = {.depth = 4, .waterTemp = 11};
    loop.advance(100ms);
    engine.mode = ControlMode::anchor;
    loop.advance(100ms);
    EXPECT_EQ(engine.state->depth, 4);
    EXPECT_EQ(engine.state->waterTemperature, 11);
    EXPECT_EQ(engine.state->satelliteCount, 11);
}

TEST_F(BoatSimulationEngineTest, sailsTheSameRunFromTheSameSeed) {
    ScriptedRandom same;
    BoatSimulationEngine twin(loop, same);
    engine.start(0);
    twin.start(0);
    loop.advance(20min);
    EXPECT_EQ(engine.state, twin.state.get());
    twin.start(0);
    engine.start(0);
    engine.start(0);
    loop.advance(1s);
    EXPECT_NE(engine.state->heading, twin.state->heading);
}

TEST_F(BoatSimulationEngineTest, takesAFreshSeedAtEveryStart) {
    random.seeds = {5};
    engine.start(0);
    const SailingSimulation expected(SailingProgram::sequence, {}, 5);
    EXPECT_EQ(engine.sailing().rng.state, expected.rng.state);
    EXPECT_EQ(engine.sailing().phase, expected.phase);
}

}  // namespace
}  // namespace tidewright::simulation
