#include "simulation/DriftState.h"

#include <gtest/gtest.h>

#include <array>

#include "support/CornerRandom.h"
#include "support/ScriptedRandom.h"

namespace tidewright::simulation {
namespace {

void expectDrift(const DriftState& drift, const std::array<double, 9>& expected) {
    const std::array found{drift.sog, drift.cog,   drift.heading, drift.stw, drift.aws,
                           drift.awa, drift.depth, drift.temp,    drift.sats};
    for (std::size_t i = 0; i < found.size(); ++i) EXPECT_NEAR(found[i], expected[i], 1e-12) << i;
}

TEST(DriftStateTest, beginsAtZeroThroughout) {
    EXPECT_EQ(DriftState{}, (DriftState{0, 0, 0, 0, 0, 0, 0, 0, 0}));
}

TEST(DriftStateTest, isPulledBackTowardsZero) {
    ScriptedRandom calm;
    DriftState drift{10, 10, 10, 10, 10, 10, 10, 10, 10};
    drift.step(0.5, calm);
    expectDrift(drift, {8.5, 9.25, 8, 8.5, 9, 9, 9.5, 9.75, 9.5});
}

TEST(DriftStateTest, isPushedByTheRootOfTheTimeToEitherSide) {
    CornerRandom most(CornerRandom::Corner::highest);
    CornerRandom least(CornerRandom::Corner::lowest);
    DriftState up;
    DriftState down;
    up.step(4, most);
    down.step(4, least);
    expectDrift(up, {0.8, 12, 6, 0.6, 5, 16, 8, 0.8, 2.4});
    expectDrift(down, {-0.8, -12, -6, -0.6, -5, -16, -8, -0.8, -2.4});
}

TEST(DriftStateTest, drawsOnceAFieldInTheirOrder) {
    ScriptedRandom random;
    random.numbers = {0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8, 0.9, 1.0};
    DriftState drift;
    drift.step(1, random);
    expectDrift(drift, {0.04, 1.2, 0.9, 0.12, 1.25, 4.8, 2.8, 0.32, 1.08});
    EXPECT_EQ(random.numbers.size(), 1U);
}

TEST(DriftStateTest, staysWhereItIsInNoTime) {
    CornerRandom most(CornerRandom::Corner::highest);
    DriftState drift{.cog = 7};
    drift.step(0, most);
    EXPECT_EQ(drift, DriftState{.cog = 7});
}

}  // namespace
}  // namespace tidewright::simulation
