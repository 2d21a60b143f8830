#include "gateway/ReplayPace.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "encoding/SentenceTime.h"

namespace tidewright::gateway {

namespace {
using namespace std::chrono_literals;
using Duration = platform::MainLoop::Duration;

constexpr Duration withoutTimes = 100ms;
constexpr Duration longestGap = 1min;
constexpr Duration day = 24h;

/// What a TAG block says, as far as it can be counted in nanoseconds.
std::optional<Duration> stamp(std::string_view line) {
    const auto time = encoding::tagBlockTime(line);
    if (!time) return std::nullopt;
    return std::min<std::chrono::milliseconds>(
        *time, std::chrono::floor<std::chrono::milliseconds>(Duration::max()));
}

}  // namespace

Duration ReplayPace::delayOf(std::string_view line) {
    const bool isFirst = !std::exchange(hasBegun_, true);
    if (kind_ == Kind::none) {
        lookForKind(line);
        return isFirst ? Duration::zero() : withoutTimes;
    }
    const auto time = timeIn(line);
    if (!time) return Duration::zero();
    const Duration gap = gapTo(*time);
    latest_ = *time;
    return gap;
}

void ReplayPace::lookForKind(std::string_view line) {
    if (const auto time = stamp(line)) {
        kind_ = Kind::tagBlocks;
        latest_ = *time;
    } else if (const auto ofDay = encoding::timeOfDay(line)) {
        kind_ = Kind::timesOfDay;
        talker_ = ofDay->talker;
        latest_ = ofDay->sinceMidnight;
    }
}

std::optional<Duration> ReplayPace::timeIn(std::string_view line) const {
    if (kind_ == Kind::tagBlocks) return stamp(line);
    const auto ofDay = encoding::timeOfDay(line);
    if (!ofDay || ofDay->talker != talker_) return std::nullopt;
    return ofDay->sinceMidnight;
}

Duration ReplayPace::gapTo(Duration time) const {
    Duration gap = time - latest_;
    if (kind_ == Kind::timesOfDay && gap < -day / 2) gap += day;
    return std::clamp(gap, Duration::zero(), longestGap);
}

}  // namespace tidewright::gateway
