#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

#include "platform/LocalTime.h"
#include "platform/RandomSource.h"

namespace tidewright::gateway {

/// A random 128-bit identity, so that two equal lines stay two.
struct ConsoleLineId {
    std::uint64_t high = 0;
    std::uint64_t low = 0;

    bool operator==(const ConsoleLineId&) const = default;
};

/// One line of the record.
struct ConsoleLine {
    ConsoleLineId id;
    std::string time;                ///< local, "HH:mm:ss"
    std::string transport;           ///< "SYS", "TCP" or "UDP"
    std::string text;                ///< without white space at its ends, shortened
    std::uint64_t missedBefore = 0;  ///< lines that were to be logged right before it, and were not

    /// As it is copied: "14:03:27 TCP > text".
    std::string copyText() const;
};

/// The running record of what was sent and what happened, the last 600 lines of it.
class ConsoleLog {
public:
    static constexpr std::size_t capacity = 600;

    /// In bytes. What is longer is cut there, at a character's end, and "…" follows.
    static constexpr std::size_t longestText = 8192;

    /// `random` must outlive this.
    ConsoleLog(platform::RandomSource& random, platform::UtcOffset utcOffset);

    /// Oldest first.
    const std::deque<ConsoleLine>& lines() const { return lines_; }

    /// How many lines were ever appended: tells a view which of lines() are new to it.
    std::uint64_t appendedCount() const { return appendedCount_; }

    /// Adds a line logged at `now`, pushing out the oldest where there are too many.
    void append(platform::WallTime now, std::string_view transport, std::string_view text);

    /// Counts a line that was to be logged and was not.
    void miss();

    /// How many lines were ever missed.
    std::uint64_t missedCount() const { return missedCount_; }

    void clear() { lines_.clear(); }

    /// Every line as "14:03:27 TCP > text", one line feed between two.
    std::string asText() const;

private:
    platform::RandomSource& random_;
    platform::UtcOffset utcOffset_;
    std::deque<ConsoleLine> lines_;
    std::uint64_t appendedCount_ = 0;
    std::uint64_t missedCount_ = 0;
    std::uint64_t missedSinceLast_ = 0;  // since the newest line
};

}  // namespace tidewright::gateway
