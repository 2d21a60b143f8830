#pragma once

#include <cstddef>
#include <string_view>

namespace tidewright::fuzz {

/// The longest sentence that NMEA 0183 allows, line end included.
inline constexpr std::size_t longestSentence = 82;

/// Stops the program unless `sentence` is one line of printable ASCII from `start` to CR LF, with
/// one "*" and after it the checksum in two upper-case hexadecimal digits: right, or wrong in every
/// bit if `corrupt`.
void checkFrame(std::string_view sentence, char start, bool corrupt);

}  // namespace tidewright::fuzz
