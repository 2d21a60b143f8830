#include "platform/TimeText.h"

#include <fmt/format.h>

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <utility>

#include "platform/DecimalNumber.h"
#include "platform/PacedMainLoop.h"

namespace tidewright::platform {

namespace {

constexpr std::string_view digits = "0123456789";
constexpr MainLoop::Duration longest = std::chrono::hours(24) * 36'525;

/// The number that `text` begins with, which is cut off; nothing where there is none.
std::optional<double> takeNumber(std::string_view& text) {
    const auto size = std::min(text.find_first_not_of("0123456789."), text.size());
    const auto number = text.substr(0, size);
    if (!number.starts_with('.') && !number.ends_with('.')) {
        text.remove_prefix(size);
        return decimalNumber(number);
    }
    return std::nullopt;
}

struct Unit {
    std::string_view name;
    MainLoop::Duration length;
};

/// Falling; of two that begin alike, the longer name first.
constexpr std::array<Unit, 4> units{{{"h", std::chrono::hours(1)},
                                     {"ms", std::chrono::milliseconds(1)},
                                     {"m", std::chrono::minutes(1)},
                                     {"s", std::chrono::seconds(1)}}};

/// The unit that `text` begins with, which is cut off; nothing where there is none.
std::optional<MainLoop::Duration> takeUnit(std::string_view& text) {
    for (const Unit& each : units) {
        if (!text.starts_with(each.name)) continue;
        text.remove_prefix(each.name.size());
        return each.length;
    }
    return std::nullopt;
}

std::optional<int> number(std::string_view text) {
    if (text.find_first_not_of(digits) != std::string_view::npos) return std::nullopt;
    int value = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || stop != text.data() + text.size()) return std::nullopt;
    return value;
}

}  // namespace

std::optional<MainLoop::Duration> parseDuration(std::string_view text) {
    double sum = 0;
    std::optional<MainLoop::Duration> last;
    do {
        const auto count = takeNumber(text);
        const auto unit = count ? takeUnit(text) : std::nullopt;
        if (!unit || (last && *unit >= *last)) return std::nullopt;
        sum += *count * static_cast<double>(unit->count());
        last = unit;
    } while (!text.empty());
    if (sum > static_cast<double>(longest.count())) return std::nullopt;
    return MainLoop::Duration(std::llround(sum));
}

std::optional<WallTime> parseUtc(std::string_view text) {
    constexpr std::string_view shape = "0000-00-00T00:00:00Z";
    if (text.size() != shape.size()) return std::nullopt;
    for (std::size_t i = 0; i < shape.size(); ++i)
        if (shape[i] != '0' && text[i] != shape[i]) return std::nullopt;
    const auto part = [text](std::size_t from, std::size_t size) {
        return number(text.substr(from, size)).value_or(-1);
    };
    using namespace std::chrono;
    const int month = part(5, 2);
    const int day = part(8, 2);
    if (month < 0 || day < 0) return std::nullopt;
    const year_month_day date(year(part(0, 4)), std::chrono::month(static_cast<unsigned>(month)),
                              std::chrono::day(static_cast<unsigned>(day)));
    const int hour = part(11, 2);
    const int minute = part(14, 2);
    const int second = part(17, 2);
    const bool isTime =
        0 <= hour && hour < 24 && 0 <= minute && minute < 60 && 0 <= second && second < 60;
    if (!date.ok() || date.year() < year(1970) || date.year() > year(2199) || !isTime)
        return std::nullopt;
    return sys_days(date) + hours(hour) + minutes(minute) + seconds(second);
}

std::string utcText(WallTime time) {
    using namespace std::chrono;
    const auto day = floor<days>(time);
    const year_month_day date(day);
    const hh_mm_ss clock(floor<seconds>(time - day));
    return fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}Z", static_cast<int>(date.year()),
                       static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                       clock.hours().count(), clock.minutes().count(), clock.seconds().count());
}

std::optional<double> parseSpeed(std::string_view text) {
    if (text == "max") return PacedMainLoop::unlimited;
    const auto factor = takeNumber(text);
    if (!factor || !text.empty() || *factor < 0.1 || *factor > 1000) return std::nullopt;
    return factor;
}

std::string speedText(double speed) {
    return speed == PacedMainLoop::unlimited ? "max" : fmt::format("{}", speed);
}

}  // namespace tidewright::platform
