#include <chrono>
#include <cmath>
#include <string>
#include <string_view>

#include "FuzzInput.h"
#include "SentenceFrame.h"
#include "encoding/AISEncoder.h"
#include "platform/Check.h"
#include "support/AivdmDecoder.h"

namespace tidewright::fuzz {

using encoding::AISEncoder;
using platform::check;
using simulation::AISTarget;

namespace {

constexpr double anySpeed = 1e15;
constexpr double anyAngle = 1e15;
constexpr std::int64_t anyIdentity = (1 << 30) - 1;  // what thirty bits hold
constexpr std::size_t longestText = 40;

AISTarget targetFrom(FuzzInput& input) {
    AISTarget target;
    target.mmsi = input.whole(0, anyIdentity);
    target.latitude = input.number(-90, 90);
    target.longitude = input.number(-180, 180);
    target.sog = input.number(0, anySpeed);
    target.cog = input.number(-anyAngle, anyAngle);
    target.heading = input.number(-anyAngle, anyAngle);
    target.shipType = input.whole(0, 255);
    target.callsign = input.textUpTo('\n').substr(0, longestText);
    target.name = input.rest().substr(0, longestText);
    return target;
}

/// Whether `sent` is `value` rounded to a whole number, either way from the middle.
bool isRounded(std::int64_t sent, double value) {
    return std::abs(static_cast<double>(sent) - value) <= 0.5 + 1e-6;
}

bool isRoundedWithin(std::int64_t sent, double value, double turn) {
    const double folded = std::remainder(value, turn);
    return std::abs(std::remainder(static_cast<double>(sent) - folded, turn)) <= 0.5 + 1e-6;
}

std::int64_t secondOf(platform::WallTime time) {
    constexpr std::int64_t minute = 60'000'000'000;
    const std::int64_t within = time.time_since_epoch().count() % minute;
    return (within < 0 ? within + minute : within) / 1'000'000'000;
}

bool isSpeed(std::int64_t sent, double knots) {
    return sent == 1022 ? knots * 10 >= 1021.5 : sent < 1022 && isRounded(sent, knots * 10);
}

/// Tenths of a degree; what would round up to a full turn is held back.
bool isCourse(std::int64_t sent, double degrees) {
    if (sent < 0 || sent > 3599) return false;
    const double tenths = std::remainder(degrees, 360) * 10;
    return isRoundedWithin(sent, tenths, 3600) || (sent == 3599 && tenths < 0 && tenths >= -0.5);
}

bool isHeading(std::int64_t sent, double degrees) {
    return 0 <= sent && sent <= 360 && isRoundedWithin(sent, degrees, 360);
}

bool isASCII(char each) {
    return static_cast<unsigned char>(each) < 0x80;
}

char onTheAir(char letter) {
    if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
    return letter >= ' ' && letter <= '_' ? letter : '@';
}

/// A text goes out letter by letter as far as it is ASCII; what follows may take fewer letters than
/// bytes, and padding ends it.
bool isText(const std::string& sent, const std::string& text) {
    for (std::size_t i = 0; i < sent.size(); ++i) {
        if (i >= text.size()) return sent.find_first_not_of('@', i) == std::string::npos;
        if (!isASCII(text[i])) return true;
        if (sent[i] != onTheAir(text[i])) return false;
    }
    return true;
}

void checkFraming(std::string_view sentence, bool corrupt) {
    checkFrame(sentence, '!', corrupt);
    check(sentence.size() <= longestSentence, "a sentence fits its line");
}

void checkPositionReport(const AISEncoder& encoder, const AISTarget& target) {
    checkFraming(encoder.positionReport(target), encoder.corrupt);
    AISEncoder intact = encoder;
    intact.corrupt = false;
    AivdmDecoder decoder{intact.positionReport(target)};
    check(decoder.length() == 168, "a position report has 168 bits");
    const PositionReport sent = decoder.positionReport();
    check(isSpeed(sent.speed, target.sog), "the speed arrives");
    check(isRounded(sent.latitude, target.latitude * 600'000), "the latitude arrives");
    check(isRounded(sent.longitude, target.longitude * 600'000), "the longitude arrives");
    check(isCourse(sent.course, target.cog), "the course arrives");
    check(isHeading(sent.heading, target.heading), "the heading arrives");
    check(sent == PositionReport{1, 0, target.mmsi, 0, -128, sent.speed, 0, sent.longitude,
                                 sent.latitude, sent.course, sent.heading, secondOf(encoder.now), 0,
                                 0, 0, 0},
          "the rest of a position report arrives");
}

void checkStaticReport(const AISEncoder& encoder, const AISTarget& target, int sequence) {
    for (const auto& sentence : encoder.staticReport(target, sequence))
        checkFraming(sentence, encoder.corrupt);
    AISEncoder intact = encoder;
    intact.corrupt = false;
    const auto [first, second] = intact.staticReport(target, sequence);
    for (const auto& sentence : {first, second})
        check(AivdmDecoder::fields(sentence).at(3) == std::to_string(sequence),
              "the sequence joins both sentences");
    AivdmDecoder decoder{first, second};
    check(decoder.length() == 424, "a static report has 424 bits");
    const StaticReport sent = decoder.staticReport();
    check(isText(sent.callsign, target.callsign), "the call sign arrives");
    check(isText(sent.name, target.name), "the name arrives");
    check(sent == StaticReport{5,
                               0,
                               target.mmsi,
                               0,
                               0,
                               sent.callsign,
                               sent.name,
                               target.shipType,
                               0,
                               0,
                               0,
                               0,
                               0,
                               0,
                               0,
                               0,
                               0,
                               0,
                               std::string(20, '@'),
                               0,
                               0},
          "the rest of a static report arrives");
}

}  // namespace

void tryInput(FuzzInput input) {
    const AISEncoder encoder{.corrupt = input.flag(),
                             .now = platform::WallTime(std::chrono::nanoseconds(input.bits()))};
    const auto sequence = static_cast<int>(input.whole(0, 9));
    const AISTarget target = targetFrom(input);
    checkPositionReport(encoder, target);
    checkStaticReport(encoder, target, sequence);
}

}  // namespace tidewright::fuzz
