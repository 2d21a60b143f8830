#include "encoding/AISEncoder.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <string_view>

#include "encoding/BitWriter.h"
#include "encoding/NMEAChecksum.h"
#include "platform/Check.h"
#include "simulation/Angles.h"

namespace tidewright::encoding {

using simulation::AISTarget;
using simulation::wrap360;

namespace {

constexpr double unitsPerDegree = 600'000;  // 1/10000 minute
constexpr std::size_t firstFragmentLength = 60;

/// The nearest whole number, halves away from zero, as the bits of a field.
std::int64_t whole(double value) {
    platform::check(std::abs(value) < 0x1p63, "an AIS value must be finite");
    return std::llround(value);
}

std::uint64_t fieldBits(std::int64_t value) {
    return static_cast<std::uint64_t>(value);
}

std::uint64_t unsignedBits(std::int64_t value, std::string_view complaint) {
    platform::check(value >= 0, complaint);
    return fieldBits(value);
}

void appendHeader(BitWriter& bits, unsigned messageType, const AISTarget& target) {
    bits.append(messageType, 6);
    bits.append(0, 2);  // repeat indicator
    bits.append(unsignedBits(target.mmsi, "an MMSI must not be negative"), 30);
}

template <typename... Fields>
std::string framed(bool corrupt, fmt::format_string<const Fields&...> body,
                   const Fields&... fields) {
    fmt::memory_buffer text;
    fmt::format_to(fmt::appender(text), body, fields...);
    return NMEAChecksum::sentence('!', {text.data(), text.size()}, corrupt);
}

std::uint64_t secondOfMinute(platform::WallTime time) {
    const auto seconds = std::chrono::floor<std::chrono::seconds>(time);
    return fieldBits((seconds - std::chrono::floor<std::chrono::minutes>(seconds)).count());
}

}  // namespace

std::string AISEncoder::positionReport(const AISTarget& target) const {
    BitWriter bits;
    appendHeader(bits, 1, target);
    bits.append(0, 4);    // under way using engine
    bits.append(128, 8);  // no turn information
    bits.append(unsignedBits(std::min<std::int64_t>(whole(target.sog * 10), 1022),
                             "a speed over ground must not be negative"),
                10);
    bits.append(0, 1);  // position accuracy
    bits.append(fieldBits(whole(target.longitude * unitsPerDegree)), 28);
    bits.append(fieldBits(whole(target.latitude * unitsPerDegree)), 27);
    bits.append(fieldBits(std::min<std::int64_t>(whole(wrap360(target.cog) * 10), 3599)), 12);
    bits.append(fieldBits(std::min<std::int64_t>(whole(wrap360(target.heading)), 511)), 9);
    bits.append(secondOfMinute(now), 6);
    bits.append(0, 2 + 3 + 1 + 19);  // manoeuvre, spare, RAIM, radio status
    const auto [payload, fillBits] = bits.armored();
    return framed(corrupt, "AIVDM,1,1,,A,{},{}", payload, fillBits);
}

std::array<std::string, 2> AISEncoder::staticReport(const AISTarget& target, int sequenceId) const {
    BitWriter bits;
    appendHeader(bits, 5, target);
    bits.append(0, 2);   // AIS version
    bits.append(0, 30);  // IMO number
    bits.appendString(target.callsign, 7);
    bits.appendString(target.name, 20);
    bits.append(unsignedBits(target.shipType, "a ship type must not be negative"), 8);
    bits.append(0, 9 + 9 + 6 + 6);  // dimensions
    bits.append(0, 4 + 20 + 8);     // position fixing device, ETA, draught
    bits.appendString("", 20);      // destination
    bits.append(0, 1 + 1);          // DTE, spare
    const auto [payload, fillBits] = bits.armored();
    const std::string_view text = payload;
    return {framed(corrupt, "AIVDM,2,1,{},A,{},0", sequenceId, text.substr(0, firstFragmentLength)),
            framed(corrupt, "AIVDM,2,2,{},A,{},{}", sequenceId, text.substr(firstFragmentLength),
                   fillBits)};
}

}  // namespace tidewright::encoding
