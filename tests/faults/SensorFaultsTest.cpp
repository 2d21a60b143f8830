#include "faults/SensorFaults.h"

#include <gtest/gtest.h>

#include "platform/VirtualMainLoop.h"
#include "support/ScriptedRandom.h"

namespace tidewright::faults {
namespace {
using namespace std::chrono_literals;

struct SensorFaultsTest : testing::Test {
    platform::VirtualMainLoop loop;
    ScriptedRandom random;
    simulation::BoatSimulationEngine engine{loop, random};
    FailureInjection faults;
    const SensorFaults sensors{faults, engine};
};

TEST_F(SensorFaultsTest, reportTheTruthWithoutAFault) {
    engine.start(0);
    for (int second = 0; second < 10; ++second) {
        loop.advance(1s);
        EXPECT_EQ(sensors.reported(), engine.state);
    }
}

TEST_F(SensorFaultsTest, holdPositionAndItsMotionAsTheyWereWhenTheyFroze) {
    engine.start(0);
    loop.advance(10s);
    const simulation::BoatState then = engine.state;
    faults.frozenPosition = true;
    loop.advance(1min);
    simulation::BoatState expected = engine.state;
    EXPECT_NE(expected.latitude, then.latitude);
    expected.latitude = then.latitude;
    expected.longitude = then.longitude;
    expected.sog = then.sog;
    expected.cog = then.cog;
    EXPECT_EQ(sensors.reported(), expected) << "time, heading, wind and depth go on";
    faults.frozenPosition = false;
    EXPECT_EQ(sensors.reported(), engine.state);
}

TEST_F(SensorFaultsTest, holdTheFirstStepWhereThePositionIsFrozenFromTheStart) {
    faults.frozenPosition = true;
    for (int run = 0; run < 2; ++run) {
        engine.start(0);
        EXPECT_EQ(sensors.reported(), engine.state);
        loop.advance(100ms);
        const simulation::BoatState firstStep = engine.state;
        loop.advance(10s);
        EXPECT_NE(engine.state->latitude, firstStep.latitude);
        EXPECT_EQ(sensors.reported().latitude, firstStep.latitude) << "run " << run;
        engine.stop();
    }
}

}  // namespace
}  // namespace tidewright::faults
