#include <array>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <string>
#include <vector>

#include "FuzzInput.h"
#include "SentenceFrame.h"
#include "encoding/NMEA0183Encoder.h"
#include "platform/Check.h"
#include "support/AivdmDecoder.h"

namespace tidewright::fuzz {

using encoding::NMEA0183Encoder;
using platform::check;
using simulation::BoatState;

namespace {

using Fields = std::vector<std::string>;

constexpr double anyNumber = 0x1p1022;  // the largest whose opposite is a finite distance apart
constexpr double anyCoordinate = 0x1p62;

/// How far the instruments may go: what they show at sea, or what a double holds.
struct Ranges {
    double latitude, longitude, angle, quantity;
    std::int64_t satellites;

    static constexpr Ranges atSea() { return {90, 180, 360, 999, 99}; }
    static constexpr Ranges anywhere() {
        return {anyCoordinate, anyCoordinate, anyNumber, anyNumber, INT64_MAX / 2};
    }
};

/// Within the days that a count of nanoseconds holds whole, from 1677 to 2262.
platform::WallTime timeFrom(FuzzInput& input) {
    constexpr std::int64_t lastDay = 106'751;
    const std::chrono::days day(input.whole(-lastDay, lastDay - 1));
    return platform::WallTime(day) +
           std::chrono::nanoseconds(input.whole(0, 24 * 3600 * 1'000'000'000LL - 1));
}

BoatState stateFrom(FuzzInput& input, const Ranges& ranges) {
    const auto angle = [&] { return input.number(-ranges.angle, ranges.angle); };
    const auto quantity = [&] { return input.number(-ranges.quantity, ranges.quantity); };
    BoatState state;
    state.latitude = input.number(-ranges.latitude, ranges.latitude);
    state.longitude = input.number(-ranges.longitude, ranges.longitude);
    state.sog = quantity();
    state.cog = angle();
    state.heading = angle();
    state.stw = quantity();
    state.apparentWindAngle = angle();
    state.apparentWindSpeed = quantity();
    state.trueWindAngle = angle();
    state.trueWindSpeed = quantity();
    state.depth = quantity();
    state.waterTemperature = quantity();
    state.gpsFix = input.flag();
    state.satelliteCount = input.whole(0, ranges.satellites);
    state.timestamp = timeFrom(input);
    return state;
}

/// The C library's word for it.
std::string printed(const char* format, double value) {
    std::array<char, 400> text{};
    std::snprintf(text.data(), text.size(), format, value);
    return text.data();
}

std::string tenths(double value) {
    return printed("%.1f", value);
}

std::tm calendar(platform::WallTime time) {
    const auto seconds = std::chrono::floor<std::chrono::seconds>(time.time_since_epoch());
    const std::time_t whole = seconds.count();
    std::tm fields{};
    gmtime_r(&whole, &fields);
    return fields;
}

void checkTime(const std::string& field, platform::WallTime time) {
    std::array<char, 8> clock{};
    const std::tm fields = calendar(time);
    std::strftime(clock.data(), clock.size(), "%H%M%S.", &fields);
    const auto since = time.time_since_epoch();
    const auto part = since - std::chrono::floor<std::chrono::seconds>(since);
    const std::string hundredths = std::to_string((part.count() + 5'000'000) / 10'000'000 % 100);
    check(field == clock.data() + std::string(2 - hundredths.size(), '0') + hundredths,
          "the time is UTC");
}

void checkDate(const std::string& field, platform::WallTime time) {
    std::array<char, 8> date{};
    const std::tm fields = calendar(time);
    std::strftime(date.data(), date.size(), "%d%m%y", &fields);
    check(field == date.data(), "the date is UTC");
}

void checkPosition(const std::string& text, char hemisphere, std::size_t wholeDigits,
                   double degrees) {
    check(hemisphere == (degrees < 0 ? '-' : '+'), "a position is on its side");
    const std::size_t point = text.find('.');
    check(point >= wholeDigits + 2 && text.size() == point + 5, "a position has its digits");
    const double whole = std::stod(text.substr(0, point - 2));
    const double minutes = std::stod(text.substr(point - 2));
    check(whole == std::trunc(std::abs(degrees)), "a position has its degrees");
    check(std::abs(minutes - (std::abs(degrees) - whole) * 60) <= 0.5001e-4,
          "a position has its minutes");
}

void checkLatitude(const Fields& fields, std::size_t first, double degrees) {
    const char side = fields.at(first + 1) == "N" ? '+' : '-';
    check(fields.at(first + 1) == "N" || fields.at(first + 1) == "S", "a latitude is N or S");
    checkPosition(fields.at(first), side, 2, degrees);
}

void checkLongitude(const Fields& fields, std::size_t first, double degrees) {
    const char side = fields.at(first + 1) == "E" ? '+' : '-';
    check(fields.at(first + 1) == "E" || fields.at(first + 1) == "W", "a longitude is E or W");
    checkPosition(fields.at(first), side, 3, degrees);
}

/// An angle is sent within one turn, rounded to tenths.
void checkAngle(const std::string& field, double degrees) {
    const double sent = std::stod(field);
    check(0 <= sent && sent <= 360 && field == tenths(sent), "an angle is within one turn");
    const double apart = std::remainder(sent - std::remainder(degrees, 360), 360);
    check(std::abs(apart) <= 0.05 + 1e-9, "an angle is what the instrument shows");
}

/// Compares fields that can be foretold; "?" stands for any.
void checkFields(const Fields& fields, const Fields& expected) {
    check(fields.size() == expected.size(), "a sentence has its fields");
    for (std::size_t i = 0; i < fields.size(); ++i)
        check(expected[i] == "?" || fields[i] == expected[i], "a field is what was measured");
}

/// One encoder and one state; each check is one family of sentences.
struct Boat {
    NMEA0183Encoder encoder;
    BoatState state;
    bool isAtSea;

    Fields fields(const std::string& sentence) const {
        checkFrame(sentence, '$', encoder.corrupt);
        check(!isAtSea || sentence.size() <= longestSentence, "a sentence fits its line");
        return AivdmDecoder::fields(sentence);
    }

    std::string name(const char* sentence) const { return encoder.talker + sentence; }

    void checkFix() const {
        const Fields rmc = fields(encoder.rmc(state));
        checkFields(rmc, {name("RMC"), "?", state.gpsFix ? "A" : "V", "?", "?", "?", "?",
                          tenths(state.sog), "?", "?", "", "", "A"});
        checkTime(rmc[1], state.timestamp);
        checkLatitude(rmc, 3, state.latitude);
        checkLongitude(rmc, 5, state.longitude);
        checkAngle(rmc[8], state.cog);
        checkDate(rmc[9], state.timestamp);

        const std::string count = std::to_string(state.satelliteCount);
        const Fields gga = fields(encoder.gga(state));
        checkFields(
            gga, {name("GGA"), "?", "?", "?", "?", "?", state.gpsFix ? "1" : "0",
                  count.size() < 2 ? "0" + count : count, "0.8", "0.0", "M", "48.0", "M", "", ""});
        checkTime(gga[1], state.timestamp);
        checkLatitude(gga, 2, state.latitude);
        checkLongitude(gga, 4, state.longitude);
    }

    void checkMotion() const {
        const Fields vtg = fields(encoder.vtg(state));
        checkFields(vtg, {name("VTG"), "?", "T", "", "M", tenths(state.sog), "N",
                          tenths(state.sog * 1.852), "K", "A"});
        checkAngle(vtg[1], state.cog);

        const Fields vhw = fields(encoder.vhw(state));
        checkFields(vhw, {name("VHW"), "?", "T", "", "M", tenths(state.stw), "N",
                          tenths(state.stw * 1.852), "K"});
        checkAngle(vhw[1], state.heading);

        const Fields hdt = fields(encoder.hdt(state));
        checkFields(hdt, {name("HDT"), "?", "T"});
        checkAngle(hdt[1], state.heading);

        const Fields hdg = fields(encoder.hdg(state));
        checkFields(hdg, {name("HDG"), "?", "", "", "", ""});
        checkAngle(hdg[1], state.heading);
    }

    void checkWind() const {
        const Fields apparent = fields(encoder.mwvApparent(state));
        checkFields(apparent, {name("MWV"), "?", "R", tenths(state.apparentWindSpeed), "N", "A"});
        checkAngle(apparent[1], state.apparentWindAngle);

        const Fields real = fields(encoder.mwvTrue(state));
        checkFields(real, {name("MWV"), "?", "T", tenths(state.trueWindSpeed), "N", "A"});
        checkAngle(real[1], state.trueWindAngle);
    }

    void checkWater() const {
        checkFields(fields(encoder.dbt(state)),
                    {name("DBT"), tenths(state.depth * 3.28084), "f", tenths(state.depth), "M",
                     tenths(state.depth * 0.546807), "F"});
        checkFields(fields(encoder.dpt(state)), {name("DPT"), tenths(state.depth), "0.0", ""});
        checkFields(fields(encoder.mtw(state)), {name("MTW"), tenths(state.waterTemperature), "C"});
    }
};

}  // namespace

void tryInput(FuzzInput input) {
    const bool isAtSea = input.flag();
    const NMEA0183Encoder encoder{.talker = input.flag() ? "GP" : "II", .corrupt = input.flag()};
    const BoatState state = stateFrom(input, isAtSea ? Ranges::atSea() : Ranges::anywhere());
    const Boat boat{encoder, state, isAtSea};
    boat.checkFix();
    boat.checkMotion();
    boat.checkWind();
    boat.checkWater();
}

}  // namespace tidewright::fuzz
