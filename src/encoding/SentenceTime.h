#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace tidewright::encoding {

// What a line says of when it was sent. A line may hold any bytes, with its line end or without;
// whether checksums are right does not matter.

/// The Unix time in the TAG blocks in front of `line`: their field "c:", of up to ten digits in
/// seconds, of more in milliseconds. Nothing where there is none, or more than eighteen digits.
std::optional<std::chrono::milliseconds> tagBlockTime(std::string_view line);

/// A time of UTC, of a day that is not told.
struct TimeOfDay {
    std::string talker;                         ///< two capital letters
    std::chrono::nanoseconds sinceMidnight{0};  ///< less than a day

    bool operator==(const TimeOfDay&) const = default;
};

/// The time that `line` carries if it is, perhaps behind TAG blocks, one of these:
///
///     $GPRMC,hhmmss.ss,…    $GPGGA,hhmmss.ss,…    $GPZDA,hhmmss.ss,…
///     $GPGLL,llll.ll,N,yyyyy.yy,W,hhmmss.ss,…
///
/// The fraction may have any length, or be left out. Nothing for other lines and for hours beyond
/// 23, minutes and seconds beyond 59.
std::optional<TimeOfDay> timeOfDay(std::string_view line);

}  // namespace tidewright::encoding
