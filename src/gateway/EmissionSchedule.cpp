#include "gateway/EmissionSchedule.h"

#include <chrono>

namespace tidewright::gateway {

namespace {

constexpr double jitter = 0.01;  // seconds

bool isDue(const ScheduledSentence& entry, platform::Instant now) {
    if (!entry.lastFired) return true;
    const double elapsed = std::chrono::duration<double>(now - *entry.lastFired).count();
    return elapsed >= entry.interval - jitter;
}

}  // namespace

EmissionSchedule::EmissionSchedule(const SimulationConfig& config) {
    for (const SentenceFamily& each : sentenceFamilies) {
        const double hertz = config.*each.hertz;
        if (config.*each.enabled && hertz > 0)
            entries_.push_back({each.kind, 1 / hertz, std::nullopt});
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
