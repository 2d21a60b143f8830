#include "platform/LocalTime.h"

#include <ctime>

namespace tidewright::platform {

std::chrono::seconds systemUtcOffset(WallTime time) {
    const std::time_t seconds =
        std::chrono::floor<std::chrono::seconds>(time).time_since_epoch().count();
    std::tm local{};
    if (localtime_r(&seconds, &local) == nullptr) return std::chrono::seconds::zero();
    return std::chrono::seconds(local.tm_gmtoff);
}

}  // namespace tidewright::platform
