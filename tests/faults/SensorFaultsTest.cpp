#include "faults/SensorFaults.h"

#include <gtest/gtest.h>

namespace tidewright::faults {
namespace {

TEST(SensorFaultsTest, reportTheTruthWithoutAFault) {
    const FailureInjection faults;
    SensorFaults sensors(faults);
    const auto truth = simulation::BoatState::starting({});
    EXPECT_EQ(sensors.reported(truth), truth);
}

}  // namespace
}  // namespace tidewright::faults
