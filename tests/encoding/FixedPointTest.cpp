#include "encoding/FixedPoint.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>

namespace tidewright::encoding {
namespace {

std::string printed(double value, int decimals) {
    std::array<char, 512> text{};
    std::snprintf(text.data(), text.size(), "%.*f", decimals, value);
    return text.data();
}

void expectAsPrinted(double value) {
    for (int decimals = 0; decimals <= 9; ++decimals)
        for (const double each : {value, -value})
            ASSERT_EQ(fixedPoint(each, decimals), printed(each, decimals)) << decimals;
}

TEST(FixedPointTest, writesAnyNumberAsPrintfDoes) {
    std::mt19937_64 generator(1);
    std::uniform_real_distribution<double> exponent(-12, 19);
    std::uniform_real_distribution<double> mantissa(1, 10);
    for (int i = 0; i < 20'000; ++i)
        expectAsPrinted(mantissa(generator) * std::pow(10, exponent(generator)));
}

TEST(FixedPointTest, writesHalvesAndTheirNeighboursAsPrintfDoes) {
    for (const double step : {0.5, 0.05, 0.005, 0.0005, 0.00005, 0.03125}) {
        for (int i = 0; i < 500; ++i) {
            const double half = i * step;
            expectAsPrinted(half);
            expectAsPrinted(std::nextafter(half, 0.0));
            expectAsPrinted(std::nextafter(half, std::numeric_limits<double>::infinity()));
        }
    }
}

TEST(FixedPointTest, writesTheExtremesAsPrintfDoes) {
    using Limits = std::numeric_limits<double>;
    for (const double value : {0.0, Limits::denorm_min(), Limits::min(), Limits::max(), 0x1p51,
                               0x1p52 + 0.5, 0x1p53, 359.95, 359.96, 59.99995, 1e22})
        expectAsPrinted(value);
    EXPECT_EQ(fixedPoint(Limits::infinity(), 1), "inf");
}

}  // namespace
}  // namespace tidewright::encoding
