#include "simulation/SeededGenerator.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <numbers>

namespace tidewright::simulation {
namespace {

TEST(SeededGeneratorTest, beginsAsPublishedFromZero) {
    EXPECT_EQ(SeededGenerator{0}.next(), 0xE220A8397B1DCDAF);
}

TEST(SeededGeneratorTest, goesOnAsPublished) {
    SeededGenerator rng{1234567};
    EXPECT_EQ(rng.next(), 6457827717110365317U);
    EXPECT_EQ(rng.next(), 3203168211198807973U);
    EXPECT_EQ(rng.next(), 9817491932198370423U);
    EXPECT_EQ(rng.next(), 4593380528125082431U);
    EXPECT_EQ(rng.next(), 16408922859458223821U);
}

TEST(SeededGeneratorTest, repeatsARunFromItsSeedAndFromACopy) {
    SeededGenerator rng{42};
    rng.next();
    SeededGenerator copy = rng;
    SeededGenerator again{42};
    again.next();
    const auto third = rng.next();
    EXPECT_EQ(copy.next(), third);
    EXPECT_EQ(again.next(), third);
}

TEST(SeededGeneratorTest, takesTheHighPartOfTheProductBelowABound) {
    for (std::uint64_t seed = 0; seed < 100; ++seed)
        EXPECT_EQ(SeededGenerator{seed}.bounded(1U << 16), SeededGenerator{seed}.next() >> 48);
}

TEST(SeededGeneratorTest, drawsAgainWhereABoundWouldFavourSomeNumbers) {
    constexpr std::uint64_t bound = (std::uint64_t{1} << 63) + 1;  // refuses nearly every other
    SeededGenerator rng{1};
    int refused = 0;
    for (int i = 0; i < 1000; ++i) {
        const std::uint64_t before = rng.state;
        EXPECT_LT(rng.bounded(bound), bound);
        refused += rng.state - before != 0x9E3779B97F4A7C15;
    }
    EXPECT_NEAR(refused, 500, 100);
}

TEST(SeededGeneratorTest, drawsEveryWholeNumberBelowTheBoundAboutAsOften) {
    SeededGenerator rng{3};
    std::array<int, 3> drawn{};
    for (int i = 0; i < 30000; ++i) ++drawn.at(static_cast<std::size_t>(rng.bounded(3)));
    for (const int count : drawn) EXPECT_NEAR(count, 10000, 600);
}

TEST(SeededGeneratorTest, makesPhasesFromTheLowBits) {
    constexpr double turn = 2 * std::numbers::pi;
    for (std::uint64_t seed = 0; seed < 1000; ++seed) {
        const double phase = SeededGenerator{seed}.halfOpen(0, turn);
        EXPECT_TRUE(phase >= 0 && phase < turn);
        const auto low = SeededGenerator{seed}.next() & 0x1FFFFFFFFFFFFF;
        EXPECT_DOUBLE_EQ(phase, turn * static_cast<double>(low) * 0x1p-53);
    }
}

TEST(SeededGeneratorTest, neverDrawsTheOpenEnd) {
    SeededGenerator rng{5};
    const double next = std::nextafter(1.0, 2.0);  // nothing in between: half of all draws round up
    for (int i = 0; i < 100; ++i) EXPECT_EQ(rng.halfOpen(1.0, next), 1.0);
}

TEST(SeededGeneratorTest, drawsFromAClosedRangeEvenly) {
    SeededGenerator rng{7};
    double sum = 0;
    for (int i = 0; i < 10000; ++i) {
        const double drawn = rng.closed(-5, 5);
        EXPECT_TRUE(drawn >= -5 && drawn <= 5);
        sum += drawn;
    }
    EXPECT_NEAR(sum / 10000, 0, 0.2);
}

TEST(SeededGeneratorTest, reachesTheUpperEndOfAClosedRangeExactly) {
    constexpr std::uint64_t allOnesNext = 0x31628AF67B2131AB;
    ASSERT_EQ(SeededGenerator{allOnesNext}.next(), UINT64_MAX);
    EXPECT_EQ(SeededGenerator{allOnesNext}.closed(-1e16, 0.1), 0.1);  // their sum would be zero
    EXPECT_EQ(SeededGenerator{9}.closed(4, 4), 4);
}

}  // namespace
}  // namespace tidewright::simulation
