#include "simulation/AISTraffic.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <new>
#include <string>
#include <string_view>
#include <utility>

#include "simulation/Angles.h"
#include "simulation/EarthModel.h"

namespace tidewright::simulation {

namespace {

constexpr std::array<std::string_view, 20> names{
    "PEN DUICK", "GROIX EXPRESS", "MARIE GALANTE", "BRUNELLE", "L'ABEILLE",
    "CORSAIRE",  "IROISE",        "BELLE POULE",   "GWALARN",  "ARMORIQUE",
    "KEREON",    "MARVENTIN",     "STELLA MARIS",  "AVEL MAD", "PENFRET",
    "MOR BIHAN", "SIROCCO",       "ALIZE",         "GALION",   "OUESSANT"};
constexpr std::array<std::int64_t, 6> shipTypes{
    30, 36, 37, 60, 70, 52};  // fishing, sailing, pleasure, passenger, cargo, tug
constexpr std::array<std::string_view, 8> callsignPrefixes{"FGA", "FHB", "FJC", "FKD",
                                                           "FLE", "FMF", "FNG", "FPH"};

constexpr std::int64_t firstMmsi = 227'100'000;  // 227: France
constexpr std::int64_t mmsiCount = 900'000;
constexpr double drift = 0.05;  // how much of its random walk a vessel follows, each step
constexpr double topSpeed = 22;

struct Moved {
    double latitude;
    double longitude;
};

/// `distance` metres along `course`. Where a degree of longitude is no longer than a metre the
/// longitude stays.
Moved move(double latitude, double longitude, double distance, double course,
           double metresPerDegree) {
    Moved moved{latitude + distance * std::cos(course) / metresPerDegreeOfLatitude, longitude};
    if (metresPerDegree > 1) moved.longitude += distance * std::sin(course) / metresPerDegree;
    return moved;
}

void sail(AISTarget& target, double dt) {
    const double distance = dt / secondsPerHour * target.sog * metresPerNauticalMile;
    const auto [latitude, longitude] =
        move(target.latitude, target.longitude, distance, radians(target.cog),
             metresPerDegreeOfLongitude(target.latitude));
    target.latitude = latitude;
    target.longitude = longitude;
}

}  // namespace

void AISTraffic::regenerate(std::int64_t count, double latitude, double longitude) {
    targets = {};
    drifts_ = {};
    if (count < 1) return;
    const auto size = static_cast<std::size_t>(count);
    if (size > targets.max_size()) throw std::bad_alloc();
    std::vector<AISTarget> fleet;
    std::unordered_map<std::int64_t, DriftState> drifts;
    fleet.reserve(size);
    drifts.reserve(std::min(size, static_cast<std::size_t>(mmsiCount)));
    for (std::size_t i = 0; i < size; ++i) {
        fleet.push_back(makeTarget(i, latitude, longitude));
        drifts[fleet.back().mmsi] = DriftState{};
    }
    targets = std::move(fleet);
    drifts_ = std::move(drifts);
}

AISTarget AISTraffic::makeTarget(std::size_t index, double latitude, double longitude) {
    const std::int64_t mmsi = firstMmsi + random_.below(mmsiCount);
    const double bearing = random_.halfOpen(0, 360);
    const double distance = random_.closed(0.3, 4.0) * metresPerNauticalMile;
    const double course = random_.halfOpen(0, 360);
    const double speed = random_.closed(0, 18);
    const auto place =
        move(latitude, longitude, distance, radians(bearing), metresPerDegreeOfLongitude(latitude));
    return {.mmsi = mmsi,
            .name = std::string(names[index % names.size()]),
            .latitude = place.latitude,
            .longitude = place.longitude,
            .sog = speed,
            .cog = course,
            .heading = course,
            .shipType = shipTypes[index % shipTypes.size()],
            .callsign = std::string(callsignPrefixes[index % callsignPrefixes.size()]) +
                        std::to_string(index)};
}

void AISTraffic::advance(double dt) {
    for (AISTarget& target : targets) {
        sail(target, dt);
        const auto found = drifts_.find(target.mmsi);
        if (found == drifts_.end()) continue;
        DriftState& wander = found->second;
        wander.step(dt, random_);
        target.cog = wrap360(target.cog + drift * wander.cog);
        target.heading = target.cog;
        target.sog = std::clamp(target.sog + drift * wander.sog, 0.0, topSpeed);
    }
}

}  // namespace tidewright::simulation
