#include "gateway/EmissionSchedule.h"

#include <chrono>

#include "platform/Check.h"

namespace tidewright::gateway {

namespace {

constexpr double jitter = 0.01;  // seconds

struct Setting {
    double hertz;
    bool enabled;
};

Setting settingOf(SentenceKind kind, const SimulationConfig& config) {
    switch (kind) {
        case SentenceKind::position:
            return {config.positionHz, config.gps};
        case SentenceKind::courseSpeed:
            return {config.courseSpeedHz, config.gps};
        case SentenceKind::heading:
            return {config.headingHz, config.heading};
        case SentenceKind::boatSpeed:
            return {config.boatSpeedHz, config.boatSpeed};
        case SentenceKind::wind:
            return {config.windHz, config.wind};
        case SentenceKind::depth:
            return {config.depthHz, config.depth};
        case SentenceKind::temperature:
            return {config.temperatureHz, config.temperature};
        case SentenceKind::ais:
            return {config.aisHz, config.ais};
    }
    platform::fail("no such sentence family");
}

bool isDue(const ScheduledSentence& entry, platform::Instant now) {
    if (!entry.lastFired) return true;
    const double elapsed = std::chrono::duration<double>(now - *entry.lastFired).count();
    return elapsed >= entry.interval - jitter;
}

}  // namespace

std::string_view rawValue(SentenceKind kind) {
    switch (kind) {
        case SentenceKind::position:
            return "position";
        case SentenceKind::courseSpeed:
            return "courseSpeed";
        case SentenceKind::heading:
            return "heading";
        case SentenceKind::boatSpeed:
            return "boatSpeed";
        case SentenceKind::wind:
            return "wind";
        case SentenceKind::depth:
            return "depth";
        case SentenceKind::temperature:
            return "temperature";
        case SentenceKind::ais:
            return "ais";
    }
    platform::fail("no such sentence family");
}

EmissionSchedule::EmissionSchedule(const SimulationConfig& config) {
    for (const SentenceKind kind : allSentenceKinds) {
        const auto [hertz, enabled] = settingOf(kind, config);
        if (enabled && hertz > 0) entries_.push_back({kind, 1 / hertz, std::nullopt});
    }
}

std::vector<SentenceKind> EmissionSchedule::takeDue(platform::Instant now) {
    std::vector<SentenceKind> due;
    for (ScheduledSentence& entry : entries_) {
        if (!isDue(entry, now)) continue;
        entry.lastFired = now;
        due.push_back(entry.kind);
    }
    return due;
}

}  // namespace tidewright::gateway
