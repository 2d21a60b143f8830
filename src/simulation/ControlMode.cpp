#include "simulation/ControlMode.h"

#include "platform/Check.h"
#include "simulation/RawValues.h"

namespace tidewright::simulation {

std::string_view rawValue(ControlMode mode) {
    switch (mode) {
        case ControlMode::auto_:
            return "auto";
        case ControlMode::manual:
            return "manual";
        case ControlMode::anchor:
            return "anchor";
    }
    platform::fail("no such control mode");
}

std::optional<ControlMode> controlMode(std::string_view rawValue) {
    return fromRawValue(allControlModes, rawValue);
}

std::string_view label(ControlMode mode) {
    switch (mode) {
        case ControlMode::auto_:
            return "Auto";
        case ControlMode::manual:
            return "Manuel";
        case ControlMode::anchor:
            return "Mouillage";
    }
    platform::fail("no such control mode");
}

}  // namespace tidewright::simulation
