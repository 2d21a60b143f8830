#include "simulation/WindPreset.h"

#include "platform/Check.h"
#include "simulation/RawValues.h"

namespace tidewright::simulation {

std::string_view rawValue(WindPreset preset) {
    switch (preset) {
        case WindPreset::light:
            return "light";
        case WindPreset::breeze:
            return "breeze";
        case WindPreset::fresh:
            return "fresh";
        case WindPreset::strong:
            return "strong";
        case WindPreset::custom:
            return "custom";
    }
    platform::fail("no such wind preset");
}

std::optional<WindPreset> windPreset(std::string_view rawValue) {
    return fromRawValue(allWindPresets, rawValue);
}

std::string_view label(WindPreset preset) {
    switch (preset) {
        case WindPreset::light:
            return "Petit temps";
        case WindPreset::breeze:
            return "Brise";
        case WindPreset::fresh:
            return "Bon vent";
        case WindPreset::strong:
            return "Fort";
        case WindPreset::custom:
            return "Perso";
    }
    platform::fail("no such wind preset");
}

}  // namespace tidewright::simulation
