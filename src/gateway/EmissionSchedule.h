#pragma once

#include <array>
#include <optional>
#include <string_view>
#include <vector>

#include "gateway/SimulationConfig.h"
#include "platform/MainLoop.h"

namespace tidewright::gateway {

/// The sentences that are sent together, in the order in which families due together go out.
enum class SentenceKind {
    position,
    courseSpeed,
    heading,
    boatSpeed,
    wind,
    depth,
    temperature,
    ais
};

inline constexpr std::array allSentenceKinds{SentenceKind::position,    SentenceKind::courseSpeed,
                                             SentenceKind::heading,     SentenceKind::boatSpeed,
                                             SentenceKind::wind,        SentenceKind::depth,
                                             SentenceKind::temperature, SentenceKind::ais};

/// As in "courseSpeed".
std::string_view rawValue(SentenceKind kind);

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
