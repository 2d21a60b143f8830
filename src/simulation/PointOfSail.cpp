#include "simulation/PointOfSail.h"

#include <algorithm>

#include "platform/Check.h"

namespace tidewright::simulation {

double targetAngle(PointOfSail sail, double windSpeed) {
    switch (sail) {
        case PointOfSail::beat:
            return std::clamp(52 - 0.8 * windSpeed, 40.0, 48.0);
        case PointOfSail::closeReach:
            return 62;
        case PointOfSail::beamReach:
            return 90;
        case PointOfSail::broadReach:
            return 118;
        case PointOfSail::run:
            return 150;
    }
    platform::fail("no such point of sail");
}

std::string_view label(PointOfSail sail) {
    switch (sail) {
        case PointOfSail::beat:
            return "Au près";
        case PointOfSail::closeReach:
            return "Bon plein";
        case PointOfSail::beamReach:
            return "Travers";
        case PointOfSail::broadReach:
            return "Largue";
        case PointOfSail::run:
            return "Grand largue";
    }
    platform::fail("no such point of sail");
}

}  // namespace tidewright::simulation
