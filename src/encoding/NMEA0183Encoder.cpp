#include "encoding/NMEA0183Encoder.h"

#include <fmt/format.h>

#include <chrono>
#include <cmath>

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
    return framed(*this, "{}RMC,{},{},{},{},{:.1f},{:.1f},{},,,A", utcTime(state.timestamp),
                  state.gpsFix ? 'A' : 'V', lat(state.latitude), lon(state.longitude), state.sog,
                  wrap360(state.cog), utcDate(state.timestamp));
}

std::string NMEA0183Encoder::gga(const BoatState& state) const {
    return framed(*this, "{}GGA,{},{},{},{},{:02},0.8,0.0,M,48.0,M,,", utcTime(state.timestamp),
                  lat(state.latitude), lon(state.longitude), state.gpsFix ? 1 : 0,
                  state.satelliteCount);
}

std::string NMEA0183Encoder::vtg(const BoatState& state) const {
    return framed(*this, "{}VTG,{:.1f},T,,M,{:.1f},N,{:.1f},K,A", wrap360(state.cog), state.sog,
                  state.sog * kilometresPerNauticalMile);
}

std::string NMEA0183Encoder::hdt(const BoatState& state) const {
    return framed(*this, "{}HDT,{:.1f},T", wrap360(state.heading));
}

std::string NMEA0183Encoder::hdg(const BoatState& state) const {
    return framed(*this, "{}HDG,{:.1f},,,,", wrap360(state.heading));
}

std::string NMEA0183Encoder::vhw(const BoatState& state) const {
    return framed(*this, "{}VHW,{:.1f},T,,M,{:.1f},N,{:.1f},K", wrap360(state.heading), state.stw,
                  state.stw * kilometresPerNauticalMile);
}

std::string NMEA0183Encoder::mwvApparent(const BoatState& state) const {
    return framed(*this, "{}MWV,{:.1f},R,{:.1f},N,A", wrap360(state.apparentWindAngle),
                  state.apparentWindSpeed);
}

std::string NMEA0183Encoder::mwvTrue(const BoatState& state) const {
    return framed(*this, "{}MWV,{:.1f},T,{:.1f},N,A", wrap360(state.trueWindAngle),
                  state.trueWindSpeed);
}

std::string NMEA0183Encoder::dbt(const BoatState& state) const {
    return framed(*this, "{}DBT,{:.1f},f,{:.1f},M,{:.1f},F", state.depth * feetPerMetre,
                  state.depth, state.depth * fathomsPerMetre);
}

std::string NMEA0183Encoder::dpt(const BoatState& state) const {
    return framed(*this, "{}DPT,{:.1f},0.0,", state.depth);
}

std::string NMEA0183Encoder::mtw(const BoatState& state) const {
    return framed(*this, "{}MTW,{:.1f},C", state.waterTemperature);
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
    return fmt::format("{:02}{:07.4f},{}", whole, minutes, degrees >= 0 ? 'N' : 'S');
}

std::string NMEA0183Encoder::lon(double degrees) {
    const auto [whole, minutes] = split(degrees);
    return fmt::format("{:03}{:07.4f},{}", whole, minutes, degrees >= 0 ? 'E' : 'W');
}

std::string NMEA0183Encoder::f(double value, int decimals) {
    return fmt::format("{:.{}f}", value, decimals);
}

}  // namespace tidewright::encoding
