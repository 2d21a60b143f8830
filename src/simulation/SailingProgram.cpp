#include "simulation/SailingProgram.h"

#include <cstddef>

#include "platform/Check.h"
#include "simulation/RawValues.h"

namespace tidewright::simulation {

namespace {

using enum PointOfSail;

constexpr std::array<LegTemplate, 8> sequenceLegs{{
    {beat, 540, 12, 0},
    {closeReach, 300, 14, 0},
    {broadReach, 360, 15, 0},
    {run, 540, 14, -1},
    {beamReach, 300, 13, 0},
    {beat, 600, 10, +1},
    {closeReach, 240, 15, 0},
    {run, 480, 12, 0},
}};
constexpr std::array<double, 6> beatWinds{12, 10, 14, 15, 11, 13};
constexpr std::array reachSails{closeReach, beamReach, broadReach, beamReach};
constexpr std::array<double, 5> reachWinds{13, 15, 12, 16, 11};
constexpr std::array<double, 5> runWinds{12, 14, 10, 15, 13};

template <typename Cycle>
auto at(const Cycle& cycle, std::int64_t index) {
    const auto length = static_cast<std::int64_t>(cycle.size());
    return cycle[static_cast<std::size_t>((index % length + length) % length)];
}

}  // namespace

std::string_view rawValue(SailingProgram program) {
    switch (program) {
        case SailingProgram::sequence:
            return "sequence";
        case SailingProgram::beat:
            return "beat";
        case SailingProgram::reach:
            return "reach";
        case SailingProgram::run:
            return "run";
    }
    platform::fail("no such sailing programme");
}

std::optional<SailingProgram> sailingProgram(std::string_view rawValue) {
    return fromRawValue(allSailingPrograms, rawValue);
}

std::string_view label(SailingProgram program) {
    switch (program) {
        case SailingProgram::sequence:
            return "Enchaîné";
        case SailingProgram::beat:
            return "Louvoyage";
        case SailingProgram::reach:
            return "Travers";
        case SailingProgram::run:
            return "Portant";
    }
    platform::fail("no such sailing programme");
}

std::string_view description(SailingProgram program) {
    switch (program) {
        case SailingProgram::sequence:
            return "Près, travers et portant à la suite, avec virements de bord et empannages. Le "
                   "vent change par grandes zones.";
        case SailingProgram::beat:
            return "Louvoyage au près : bordées de 2 à 4 minutes, virement de bord à chaque fin de "
                   "bordée.";
        case SailingProgram::reach:
            return "Allures de travers (bon plein, travers, largue), sans manœuvre fréquente.";
        case SailingProgram::run:
            return "Portant au grand largue : bordées de 2,5 à 5 minutes, empannage à chaque fin "
                   "de bordée.";
    }
    platform::fail("no such sailing programme");
}

LegTemplate legTemplate(SailingProgram program, std::int64_t index) {
    switch (program) {
        case SailingProgram::sequence:
            return at(sequenceLegs, index);
        case SailingProgram::beat:
            return {beat, 600, at(beatWinds, index), 0};
        case SailingProgram::reach:  // the two cycles differ, so a leg recurs only every twenty
            return {at(reachSails, index), 360, at(reachWinds, index),
                    index % 2 == 0 ? +1.0 : -1.0};
        case SailingProgram::run:
            return {run, 600, at(runWinds, index), 0};
    }
    platform::fail("no such sailing programme");
}

}  // namespace tidewright::simulation
