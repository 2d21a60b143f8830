#pragma once

#include <optional>
#include <vector>

#include "gateway/SentenceFamily.h"
#include "platform/MainLoop.h"

namespace tidewright::gateway {

struct ScheduledSentence {
    SentenceKind kind;
    double interval;                             ///< seconds between emissions
    std::optional<platform::Instant> lastFired;  ///< absent: never, so it is due
};

/// Which families are due, by the rates and switches of the settings as they were at construction.
class EmissionSchedule {
public:
    /// Never due for anything.
    EmissionSchedule() = default;

    /// Families that are on and have a rate above 0 Hz, in the order of SentenceKind.
    explicit EmissionSchedule(const SimulationConfig& config);

    const std::vector<ScheduledSentence>& entries() const { return entries_; }

    /// The families due at `now`, which count as sent then. Ten milliseconds of jitter are
    /// forgiven, so a fifth of a second is every fourth pump; rates above the pump's come down to
    /// one a pump.
    std::vector<SentenceKind> takeDue(platform::Instant now);

private:
    std::vector<ScheduledSentence> entries_;
};

}  // namespace tidewright::gateway
