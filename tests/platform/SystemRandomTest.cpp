#include "platform/SystemRandom.h"

#include <gtest/gtest.h>

#include <array>

namespace tidewright::platform {
namespace {

TEST(SystemRandomTest, differsFromOneRunToTheNext) {
    EXPECT_NE(SystemRandom().bits(), SystemRandom().bits());
}

TEST(SystemRandomTest, drawsEveryWholeNumberBelowTheBoundAboutAsOften) {
    SystemRandom random;
    std::array<int, 4> drawn{};
    for (int i = 0; i < 40000; ++i) ++drawn.at(static_cast<std::size_t>(random.below(4)));
    for (const int count : drawn) EXPECT_NEAR(count, 10000, 600);  // seven standard deviations
}

TEST(SystemRandomTest, staysWithinItsBounds) {
    SystemRandom random;
    for (int i = 0; i < 10000; ++i) {
        const double halfOpen = random.halfOpen(0, 360);
        EXPECT_TRUE(halfOpen >= 0 && halfOpen < 360);
        const double closed = random.closed(-1, 1);
        EXPECT_TRUE(closed >= -1 && closed <= 1);
    }
}

TEST(SystemRandomTest, refusesABoundOfNothing) {
    SystemRandom random;
    EXPECT_DEATH(random.below(0), "bound");
}

}  // namespace
}  // namespace tidewright::platform
