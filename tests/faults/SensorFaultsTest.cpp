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
    const SensorFaults sensors{engine};
};

TEST_F(SensorFaultsTest, reportTheTruthWithoutAFault) {
    engine.start(0);
    for (int second = 0; second < 10; ++second) {
        loop.advance(1s);
        EXPECT_EQ(sensors.reported(), engine.state);
    }
}

}  // namespace
}  // namespace tidewright::faults
