#include "encoding/NMEA0183Encoder.h"

#include <fmt/compile.h>
#include <fmt/format.h>

#include <chrono>
#include <cmath>
#include <cstdint>
#include <string_view>

#include "encoding/FixedPoint.h"
#include "encoding/NMEAChecksum.h"
#include "platform/Check.h"
#include "simulation/Angles.h"

namespace tidewright::encoding {

using simulation::BoatState;
using simulation::wrap360;

namespace {

constexpr double kilometresPerNauticalMile = 1.852;
constexpr double feetPerMetre = 3.28084;
constexpr double fathomsPerMetre = 0.546807;

std::string f1(double value) {
    return NMEA0183Encoder::f(value, 1);
}

/// `body`, compiled by FMT_COMPILE, begins with the talker; `fields` fill the rest.
template <typename Body, typename... Fields>
std::string framed(const NMEA0183Encoder& encoder, const Body& body, const Fields&... fields) {
    fmt::memory_buffer text;
    fmt::format_to(fmt::appender(text), body, encoder.talker, fields...);
    return NMEAChecksum::sentence('$', {text.data(), text.size()}, encoder.corrupt);
}

/// The last two digits of `number` (>= 0).
void appendTwoDigits(std::string& text, std::int64_t number) {
    text += static_cast<char>('0' + number / 10 % 10);
    text += static_cast<char>('0' + number % 10);
}

/// `digits`, with zeros before it up to `width`.
void appendPadded(std::string& text, std::string_view digits, std::size_t width) {
    if (digits.size() < width) text.append(width - digits.size(), '0');
    text += digits;
}

struct DegreesAndMinutes {
    long long degrees;
    double minutes;
};

DegreesAndMinutes split(double coordinate) {
    const double size = std::abs(coordinate);
    platform::check(size < 0x1p63, "a coordinate must be finite");
    const auto whole = static_cast<long long>(size);
    return {whole, (size - static_cast<double>(whole)) * 60};
}

std::string position(double coordinate, std::size_t width, char hemisphere) {
    const auto [degrees, minutes] = split(coordinate);
    std::string text;
    appendPadded(text, fmt::format_int(degrees).c_str(), width);
    appendPadded(text, NMEA0183Encoder::f(minutes, 4), 7);
    text += ',';
    text += hemisphere;
    return text;
}

}  // namespace

std::string NMEA0183Encoder::rmc(const BoatState& state) const {
    return framed(*this, FMT_COMPILE("{}RMC,{},{},{},{},{},{},{},,,A"), utcTime(state.timestamp),
                  state.gpsFix ? 'A' : 'V', lat(state.latitude), lon(state.longitude),
                  f1(state.sog), f1(wrap360(state.cog)), utcDate(state.timestamp));
}

std::string NMEA0183Encoder::gga(const BoatState& state) const {
    return framed(*this, FMT_COMPILE("{}GGA,{},{},{},{},{:02},0.8,0.0,M,48.0,M,,"),
                  utcTime(state.timestamp), lat(state.latitude), lon(state.longitude),
                  state.gpsFix ? 1 : 0, state.satelliteCount);
}

std::string NMEA0183Encoder::vtg(const BoatState& state) const {
    return framed(*this, FMT_COMPILE("{}VTG,{},T,,M,{},N,{},K,A"), f1(wrap360(state.cog)),
                  f1(state.sog), f1(state.sog * kilometresPerNauticalMile));
}

std::string NMEA0183Encoder::hdt(const BoatState& state) const {
    return framed(*this, FMT_COMPILE("{}HDT,{},T"), f1(wrap360(state.heading)));
}

std::string NMEA0183Encoder::hdg(const BoatState& state) const {
    return framed(*this, FMT_COMPILE("{}HDG,{},,,,"), f1(wrap360(state.heading)));
}

std::string NMEA0183Encoder::vhw(const BoatState& state) const {
    return framed(*this, FMT_COMPILE("{}VHW,{},T,,M,{},N,{},K"), f1(wrap360(state.heading)),
                  f1(state.stw), f1(state.stw * kilometresPerNauticalMile));
}

std::string NMEA0183Encoder::mwvApparent(const BoatState& state) const {
    return framed(*this, FMT_COMPILE("{}MWV,{},R,{},N,A"), f1(wrap360(state.apparentWindAngle)),
                  f1(state.apparentWindSpeed));
}

std::string NMEA0183Encoder::mwvTrue(const BoatState& state) const {
    return framed(*this, FMT_COMPILE("{}MWV,{},T,{},N,A"), f1(wrap360(state.trueWindAngle)),
                  f1(state.trueWindSpeed));
}

std::string NMEA0183Encoder::dbt(const BoatState& state) const {
    return framed(*this, FMT_COMPILE("{}DBT,{},f,{},M,{},F"), f1(state.depth * feetPerMetre),
                  f1(state.depth), f1(state.depth * fathomsPerMetre));
}

std::string NMEA0183Encoder::dpt(const BoatState& state) const {
    return framed(*this, FMT_COMPILE("{}DPT,{},0.0,"), f1(state.depth));
}

std::string NMEA0183Encoder::mtw(const BoatState& state) const {
    return framed(*this, FMT_COMPILE("{}MTW,{},C"), f1(state.waterTemperature));
}

std::string NMEA0183Encoder::utcTime(platform::WallTime time) {
    using namespace std::chrono;
    const hh_mm_ss clock(time - floor<days>(time));
    std::string text;
    appendTwoDigits(text, clock.hours().count());
    appendTwoDigits(text, clock.minutes().count());
    appendTwoDigits(text, clock.seconds().count());
    text += '.';
    appendTwoDigits(text, (clock.subseconds() + 5ms) / 10ms);
    return text;
}

std::string NMEA0183Encoder::utcDate(platform::WallTime time) {
    const std::chrono::year_month_day date(std::chrono::floor<std::chrono::days>(time));
    std::string text;
    appendTwoDigits(text, static_cast<unsigned>(date.day()));
    appendTwoDigits(text, static_cast<unsigned>(date.month()));
    appendTwoDigits(text, static_cast<int>(date.year()));
    return text;
}

std::string NMEA0183Encoder::lat(double degrees) {
    return position(degrees, 2, degrees >= 0 ? 'N' : 'S');
}

std::string NMEA0183Encoder::lon(double degrees) {
    return position(degrees, 3, degrees >= 0 ? 'E' : 'W');
}

std::string NMEA0183Encoder::f(double value, int decimals) {
    return fixedPoint(value, decimals);
}

}  // namespace tidewright::encoding
