#include "encoding/NMEA0183Encoder.h"

#include <fmt/format.h>

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <system_error>

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

/// `body` begins with the talker; `fields` fill the rest.
template <typename... Fields>
std::string framed(const NMEA0183Encoder& encoder,
                   fmt::format_string<const std::string&, const Fields&...> body,
                   const Fields&... fields) {
    fmt::memory_buffer text;
    fmt::format_to(fmt::appender(text), body, encoder.talker, fields...);
    return NMEAChecksum::sentence('$', {text.data(), text.size()}, encoder.corrupt);
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

}  // namespace

std::string NMEA0183Encoder::rmc(const BoatState& state) const {
    return framed(*this, "{}RMC,{},{},{},{},{},{},{},,,A", utcTime(state.timestamp),
                  state.gpsFix ? 'A' : 'V', lat(state.latitude), lon(state.longitude),
                  f1(state.sog), f1(wrap360(state.cog)), utcDate(state.timestamp));
}

std::string NMEA0183Encoder::gga(const BoatState& state) const {
    return framed(*this, "{}GGA,{},{},{},{},{:02},0.8,0.0,M,48.0,M,,", utcTime(state.timestamp),
                  lat(state.latitude), lon(state.longitude), state.gpsFix ? 1 : 0,
                  state.satelliteCount);
}

std::string NMEA0183Encoder::vtg(const BoatState& state) const {
    return framed(*this, "{}VTG,{},T,,M,{},N,{},K,A", f1(wrap360(state.cog)), f1(state.sog),
                  f1(state.sog * kilometresPerNauticalMile));
}

std::string NMEA0183Encoder::hdt(const BoatState& state) const {
    return framed(*this, "{}HDT,{},T", f1(wrap360(state.heading)));
}

std::string NMEA0183Encoder::hdg(const BoatState& state) const {
    return framed(*this, "{}HDG,{},,,,", f1(wrap360(state.heading)));
}

std::string NMEA0183Encoder::vhw(const BoatState& state) const {
    return framed(*this, "{}VHW,{},T,,M,{},N,{},K", f1(wrap360(state.heading)), f1(state.stw),
                  f1(state.stw * kilometresPerNauticalMile));
}

std::string NMEA0183Encoder::mwvApparent(const BoatState& state) const {
    return framed(*this, "{}MWV,{},R,{},N,A", f1(wrap360(state.apparentWindAngle)),
                  f1(state.apparentWindSpeed));
}

std::string NMEA0183Encoder::mwvTrue(const BoatState& state) const {
    return framed(*this, "{}MWV,{},T,{},N,A", f1(wrap360(state.trueWindAngle)),
                  f1(state.trueWindSpeed));
}

std::string NMEA0183Encoder::dbt(const BoatState& state) const {
    return framed(*this, "{}DBT,{},f,{},M,{},F", f1(state.depth * feetPerMetre), f1(state.depth),
                  f1(state.depth * fathomsPerMetre));
}

std::string NMEA0183Encoder::dpt(const BoatState& state) const {
    return framed(*this, "{}DPT,{},0.0,", f1(state.depth));
}

std::string NMEA0183Encoder::mtw(const BoatState& state) const {
    return framed(*this, "{}MTW,{},C", f1(state.waterTemperature));
}

std::string NMEA0183Encoder::utcTime(platform::WallTime time) {
    using namespace std::chrono;
    const hh_mm_ss clock(time - floor<days>(time));
    const auto hundredths = (clock.subseconds() + 5ms) / 10ms % 100;
    return fmt::format("{:02}{:02}{:02}.{:02}", clock.hours().count(), clock.minutes().count(),
                       clock.seconds().count(), hundredths);
}

std::string NMEA0183Encoder::utcDate(platform::WallTime time) {
    const std::chrono::year_month_day date(std::chrono::floor<std::chrono::days>(time));
    return fmt::format("{:02}{:02}{:02}", static_cast<unsigned>(date.day()),
                       static_cast<unsigned>(date.month()), static_cast<int>(date.year()) % 100);
}

std::string NMEA0183Encoder::lat(double degrees) {
    const auto [whole, minutes] = split(degrees);
    return fmt::format("{:02}{:0>7},{}", whole, f(minutes, 4), degrees >= 0 ? 'N' : 'S');
}

std::string NMEA0183Encoder::lon(double degrees) {
    const auto [whole, minutes] = split(degrees);
    return fmt::format("{:03}{:0>7},{}", whole, f(minutes, 4), degrees >= 0 ? 'E' : 'W');
}

std::string NMEA0183Encoder::f(double value, int decimals) {
    std::array<char, 400> text;  // the largest double has 309 digits before the point
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), value,
                                            std::chars_format::fixed, decimals);
    platform::check(error == std::errc(), "a number must fit its field");
    return {text.data(), end};
}

}  // namespace tidewright::encoding
