#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/MainLoop.h"

namespace tidewright::gateway {

/// How recorded lines follow each other, by the first kind of time that is met among them: that of
/// TAG blocks, or the time of day of one talker. Ten lines a second until then.
class ReplayPace {
public:
    /// How long after the line before it `line`, which comes next, leaves: 0 to a minute; 0 for the
    /// first one and, once a kind is met, for what carries no time of that kind.
    ///
    /// A longer gap is a minute, a step back is none, and what follows counts from there. A time of
    /// day more than twelve hours back is of the day after.
    platform::MainLoop::Duration delayOf(std::string_view line);

private:
    enum class Kind { none, tagBlocks, timesOfDay };

    void lookForKind(std::string_view line);
    std::optional<platform::MainLoop::Duration> timeIn(std::string_view line) const;
    platform::MainLoop::Duration gapTo(platform::MainLoop::Duration time) const;

    bool hasBegun_ = false;
    Kind kind_ = Kind::none;
    std::string talker_;                      // whose times of day count
    platform::MainLoop::Duration latest_{0};  // time that a line carried
};

}  // namespace tidewright::gateway
