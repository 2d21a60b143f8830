#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/MainLoop.h"

namespace tidewright::platform {

/// A span of time as scripts write it, >= 0: a number, with a point or without, and one of "ms",
/// "s", "m" and "h", or several such in falling order, as in "1h30m". Nothing for other texts and
/// for more than a hundred years.
std::optional<MainLoop::Duration> parseDuration(std::string_view text);

/// A moment of UTC on a whole second, as in "2026-06-01T12:00:00Z", from 1970 to 2199. Nothing for
/// other texts and for days that the calendar does not have.
std::optional<WallTime> parseUtc(std::string_view text);

/// As parseUtc() reads it; parts of a second are left out.
std::string utcText(WallTime time);

/// A run's speed, within 0.1 to 1000 or, for "max", PacedMainLoop::unlimited. Nothing for other
/// texts.
std::optional<double> parseSpeed(std::string_view text);

/// As parseSpeed() reads it.
std::string speedText(double speed);

}  // namespace tidewright::platform
