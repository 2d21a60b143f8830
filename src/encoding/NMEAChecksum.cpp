#include "encoding/NMEAChecksum.h"

#include <array>

namespace tidewright::encoding {

std::uint8_t NMEAChecksum::compute(std::string_view text) {
    std::uint8_t checksum = 0;
    for (const char each : text) checksum ^= static_cast<std::uint8_t>(each);
    return checksum;
}

std::string NMEAChecksum::sentence(char prefix, std::string_view body, bool corrupt) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    const unsigned checksum = compute(body) ^ (corrupt ? 0xFFU : 0U);
    const std::array tail{'*', digits[checksum >> 4], digits[checksum & 0xF], '\r', '\n'};
    std::string framed;
    framed.reserve(1 + body.size() + tail.size());
    framed += prefix;
    framed += body;
    framed.append(tail.data(), tail.size());
    return framed;
}

}  // namespace tidewright::encoding
