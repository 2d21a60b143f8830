#pragma once

#include <cmath>

namespace tidewright::simulation {

/// The share of the way to its target that a first-order lag covers in `dt` seconds with the time
/// constant `tau` seconds (> 0); within [0, 1) for dt >= 0.
inline double lagShare(double dt, double tau) {
    return 1.0 - std::exp(-dt / tau);
}

}  // namespace tidewright::simulation
