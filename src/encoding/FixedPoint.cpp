#include "encoding/FixedPoint.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>
#include <system_error>

#include "platform/Check.h"

namespace tidewright::encoding {

namespace {

constexpr std::array<std::uint32_t, 8> powersOfTen{1,      10,      100,       1'000,
                                                   10'000, 100'000, 1'000'000, 10'000'000};

/// What rounding `factor` x `size` to the double `product` left out, exactly. `factor` is a whole
/// number of at most 26 bits: each half of `size` times it fits a double.
double roundingError(double size, double factor, double product) {
    constexpr std::uint64_t lowerBits = (std::uint64_t{1} << 27) - 1;
    const auto upper = std::bit_cast<double>(std::bit_cast<std::uint64_t>(size) & ~lowerBits);
    const double lower = size - upper;
    return (upper * factor - product) + lower * factor;
}

/// The whole number nearest to `factor` x `size`, the even one of two as near; nothing where that
/// is too large to be told in this way.
std::optional<std::uint64_t> nearestProduct(double size, std::uint32_t factor) {
    const double product = size * factor;
    if (!(product < 0x1p51)) return std::nullopt;
    const auto whole = static_cast<std::uint64_t>(product);
    const double rest = product - static_cast<double>(whole);
    if (rest != 0.5) return whole + (rest > 0.5 ? 1 : 0);
    const double error = roundingError(size, factor, product);
    const bool isUp = error > 0 || (error == 0 && whole % 2 == 1);
    return whole + (isUp ? 1 : 0);
}

/// `digits`, the last `decimals` of them after the point and at least one before it.
std::string text(std::uint64_t digits, int decimals, bool isNegative) {
    std::array<char, 24> text;
    char* begin = text.data() + text.size();
    for (int place = 0; place <= decimals || digits > 0; ++place, digits /= 10) {
        if (place == decimals) *--begin = '.';
        *--begin = static_cast<char>('0' + digits % 10);
    }
    if (isNegative) *--begin = '-';
    return {begin, text.data() + text.size()};
}

/// For any number.
std::string slowFixedPoint(double value, int decimals) {
    std::array<char, 400> text;  // the largest double has 309 digits before the point
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), value,
                                            std::chars_format::fixed, decimals);
    platform::check(error == std::errc(), "a number must fit its field");
    return {text.data(), end};
}

}  // namespace

std::string fixedPoint(double value, int decimals) {
    if (decimals < 1 || decimals >= std::ssize(powersOfTen)) return slowFixedPoint(value, decimals);
    const std::uint32_t factor = powersOfTen[static_cast<std::size_t>(decimals)];
    const auto digits = nearestProduct(std::abs(value), factor);
    return digits ? text(*digits, decimals, std::signbit(value)) : slowFixedPoint(value, decimals);
}

}  // namespace tidewright::encoding
