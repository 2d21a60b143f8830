#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tidewright::encoding {

/// The frame that every sentence of the program goes out in (NMEA 0183).
namespace NMEAChecksum {

/// The exclusive-or of every byte of `text`; 0 for an empty one.
std::uint8_t compute(std::string_view text);

/// `prefix` ('$', or '!' for AIS), `body`, '*', the body's checksum as two upper-case hexadecimal
/// digits, CR LF. When `corrupt`, every bit of the checksum is inverted, so that it is never right.
std::string sentence(char prefix, std::string_view body, bool corrupt);

}  // namespace NMEAChecksum

}  // namespace tidewright::encoding
