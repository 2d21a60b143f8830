#include "simulation/SeededGenerator.h"

namespace tidewright::simulation {

namespace {

constexpr std::uint64_t steps = std::uint64_t{1} << 53;
constexpr double step = 0x1p-53;

constexpr std::uint64_t lowHalf(std::uint64_t number) {
    return number & 0xFFFFFFFF;
}

constexpr std::uint64_t highHalf(std::uint64_t number) {
    return number >> 32;
}

/// The 128 bits of a x b, of which `high` and `low` are 64 each.
struct Product {
    std::uint64_t high;
    std::uint64_t low;
};

/// Multiplied by halves, as on paper: no machine of 32 bits has a number of 128.
constexpr Product multiply(std::uint64_t a, std::uint64_t b) {
    const std::uint64_t low = lowHalf(a) * lowHalf(b);
    const std::uint64_t one = highHalf(a) * lowHalf(b) + highHalf(low);
    const std::uint64_t other = lowHalf(a) * highHalf(b) + lowHalf(one);
    return {highHalf(a) * highHalf(b) + highHalf(one) + highHalf(other),
            other << 32 | lowHalf(low)};
}

}  // namespace

std::uint64_t SeededGenerator::next() {
    state += 0x9E3779B97F4A7C15;
    std::uint64_t z = state;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EB;
    return z ^ (z >> 31);
}

std::uint64_t SeededGenerator::bounded(std::uint64_t n) {
    Product product = multiply(next(), n);
    if (product.low < n) {
        const std::uint64_t threshold = (0 - n) % n;
        while (product.low < threshold) product = multiply(next(), n);
    }
    return product.high;
}

double SeededGenerator::halfOpen(double low, double high) {
    while (true) {
        const double u = static_cast<double>(next() & (steps - 1)) * step;
        const double x = (high - low) * u + low;
        if (x != high) return x;
    }
}

double SeededGenerator::closed(double low, double high) {
    const std::uint64_t drawn = bounded(steps + 1);
    if (drawn == steps) return high;
    return low + (high - low) * (static_cast<double>(drawn) * step);
}

}  // namespace tidewright::simulation
