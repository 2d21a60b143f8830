#include "simulation/SeededGenerator.h"

namespace tidewright::simulation {

namespace {

constexpr std::uint64_t steps = std::uint64_t{1} << 53;
constexpr double step = 0x1p-53;

struct Product {
    std::uint64_t high;
    std::uint64_t low;
};

Product multiply(std::uint64_t a, std::uint64_t b) {
    __extension__ using Wide = unsigned __int128;
    const Wide product = static_cast<Wide>(a) * b;
    return {static_cast<std::uint64_t>(product >> 64), static_cast<std::uint64_t>(product)};
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
