#pragma once

#include <chrono>
#include <functional>

#include "platform/MainLoop.h"

namespace tidewright::platform {

/// How far local time is ahead of UTC at an instant (negative west of Greenwich).
using UtcOffset = std::function<std::chrono::seconds(WallTime)>;

/// The machine's own time zone, daylight saving time included. Zero if the host cannot tell.
std::chrono::seconds systemUtcOffset(WallTime time);

}  // namespace tidewright::platform
