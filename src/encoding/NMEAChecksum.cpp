#include "encoding/NMEAChecksum.h"

namespace tidewright::encoding {

std::uint8_t NMEAChecksum::compute(std::string_view text) {
    std::uint8_t checksum = 0;
    for (const char each : text) checksum ^= static_cast<std::uint8_t>(each);
    return checksum;
}

std::string NMEAChecksum::sentence(char prefix, std::string_view body, bool corrupt) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    const unsigned checksum = compute(body) ^ (corrupt ? 0xFFU : 0U);
    std::string framed;
    framed.reserve(body.size() + 6);
    framed += prefix;
    framed += body;
    framed += '*';
    framed += digits[checksum >> 4];
    framed += digits[checksum & 0xF];
    framed += "\r\n";
    return framed;
}

}  // namespace tidewright::encoding
