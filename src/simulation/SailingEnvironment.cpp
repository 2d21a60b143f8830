#include "simulation/SailingEnvironment.h"

#include <algorithm>

#include "platform/Check.h"

namespace tidewright::simulation {

WindRange SailingEnvironment::windRange() const {
    switch (windPreset) {
        case WindPreset::light:
            return {5, 9};
        case WindPreset::breeze:
            return {10, 16};
        case WindPreset::fresh:
            return {17, 22};
        case WindPreset::strong:
            return {23, 30};
        case WindPreset::custom: {
            const double low = std::min(customMin, customMax - 1);
            return {low, std::max(customMax, low + 1)};
        }
    }
    platform::fail("no such wind preset");
}

double SailingEnvironment::zoneWind(double fraction) const {
    const auto [low, high] = windRange();
    return low + std::clamp(fraction, 0.0, 1.0) * (high - low);
}

}  // namespace tidewright::simulation
