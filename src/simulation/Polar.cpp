#include "simulation/Polar.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace tidewright::simulation {

namespace {

constexpr std::array<double, 13> windAngles{0,   36,  42,  52,  60,  75, 90,
                                            110, 120, 135, 150, 165, 180};
constexpr std::array<double, 6> windSpeeds{0, 6, 10, 14, 20, 30};
constexpr std::array<std::array<double, 13>, 6> boatSpeeds{{
    {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0},
    {0, 3.9, 4.6, 5.2, 5.5, 5.8, 5.9, 5.8, 5.5, 4.9, 4.2, 3.8, 3.6},
    {0, 5.3, 6.0, 6.5, 6.8, 7.1, 7.2, 7.3, 7.0, 6.4, 5.6, 5.0, 4.8},
    {0, 6.1, 6.7, 7.2, 7.5, 7.9, 8.1, 8.3, 8.2, 7.6, 6.8, 6.2, 5.9},
    {0, 6.4, 6.9, 7.5, 7.9, 8.4, 8.8, 9.2, 9.3, 8.9, 8.1, 7.4, 7.0},
    {0, 6.2, 6.7, 7.3, 7.8, 8.5, 9.0, 9.6, 9.8, 9.5, 8.8, 8.0, 7.5},
}};

struct Cell {
    std::size_t index;
    double fraction;  // within the cell, [0, 1]
};

template <std::size_t size>
Cell bracket(const std::array<double, size>& knots, double value) {
    const double v = std::clamp(value, knots.front(), knots.back());
    std::size_t k = 0;
    while (k < size - 2 && knots[k + 1] < v) ++k;
    return {k, (v - knots[k]) / (knots[k + 1] - knots[k])};
}

}  // namespace

double Polar::speed(double twa, double tws) {
    const auto [i, f] = bracket(windAngles, std::abs(twa));
    const auto [j, g] = bracket(windSpeeds, tws);
    const auto along = [i = i, f = f](const auto& row) {
        return row[i] * (1 - f) + row[i + 1] * f;
    };
    return (1 - g) * along(boatSpeeds[j]) + g * along(boatSpeeds[j + 1]);
}

}  // namespace tidewright::simulation
