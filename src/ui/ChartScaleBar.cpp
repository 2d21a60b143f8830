#include "ui/ChartScaleBar.h"

#include <fmt/format.h>

#include <cmath>

#include "simulation/EarthModel.h"

namespace tidewright::ui {

namespace {

using simulation::metresPerNauticalMile;

/// The greatest of 1, 2 and 5 times a power of ten that is no more than `most`.
double roundBelow(double most) {
    const double power = std::pow(10, std::floor(std::log10(most)));
    for (const double digit : {5, 2})
        if (digit * power <= most) return digit * power;
    return power;
}

}  // namespace

ChartScaleBar scaleBar(double metresPerPixel, double mostPixels) {
    const double most = metresPerPixel * mostPixels;
    const bool inMiles = most >= 0.5 * metresPerNauticalMile;
    const double unit = inMiles ? metresPerNauticalMile : 1;
    const double distance = roundBelow(most / unit);
    return {.metres = distance * unit,
            .pixels = distance * unit / metresPerPixel,
            .text = fmt::format("{:g} {}", distance, inMiles ? "NM" : "m")};
}

}  // namespace tidewright::ui
