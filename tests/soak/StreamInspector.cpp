#include "StreamInspector.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "platform/DecimalNumber.h"
#include "support/AivdmDecoder.h"

namespace tidewright::soak {
namespace {

/// One number of a sentence and what it may be. A direction of 359.96 is written as 360.0, and a
/// vessel heading for 359.5 as 360.
struct Range {
    std::size_t field;
    double low;
    double high;
};

const std::map<std::string, std::vector<Range>, std::less<>> ranges{
    {"RMC", {{3, 0, 9000}, {5, 0, 18000}, {7, 0, 20}, {8, 0, 360}}},
    {"GGA", {{2, 0, 9000}, {4, 0, 18000}, {6, 1, 1}, {7, 4, 24}}},
    {"VTG", {{1, 0, 360}, {5, 0, 20}, {7, 0, 37.1}}},
    {"HDT", {{1, 0, 360}}},
    {"HDG", {{1, 0, 360}}},
    {"VHW", {{1, 0, 360}, {5, 0, 20}, {7, 0, 37.1}}},
    {"MWV", {{1, 0, 360}, {3, 0, 60}}},
    {"DBT", {{1, 3, 330}, {3, 1, 100}, {5, 0.5, 55}}},
    {"DPT", {{1, 1, 100}, {2, 0, 0}}},
    {"MTW", {{1, -2, 40}}},
};

bool isWithin(const Range& range, const std::vector<std::string>& fields) {
    if (range.field >= fields.size()) return false;
    const auto value = platform::decimalNumber(fields[range.field]);
    return value && *value >= range.low && *value <= range.high;
}

bool isPossible(const PositionReport& report) {
    constexpr int perDegree = 600'000;
    return report.mmsi > 0 && report.mmsi <= 999'999'999 && report.speed <= 1022 &&
           std::abs(report.longitude) <= 180 * perDegree &&
           std::abs(report.latitude) <= 90 * perDegree && report.course < 3600 &&
           report.heading <= 360 && report.second < 60;
}

}  // namespace

void StreamInspector::take(const std::string& sentence) {
    ++countByAddress_[sentence.substr(1, 5)];
    if (std::string fault = faultOf(sentence); !fault.empty()) {
        faults_.try_emplace(std::move(fault), sentence);
    }
}

std::string StreamInspector::faultOf(const std::string& sentence) {
    if (!sentence.ends_with("\r\n") || !AivdmDecoder::isIntact(sentence)) return "broken frame";
    const auto fields = AivdmDecoder::fields(sentence);
    if (fields[0] == "AIVDM") {
        const bool isWhole = fields[1] == "1";
        if (isWhole && !isPossible(AivdmDecoder{sentence}.positionReport())) return "vessel astray";
        return "";
    }
    const std::string name = fields[0].substr(2);
    const auto known = ranges.find(name);
    if (known == ranges.end()) return "unknown sentence " + name;
    for (const Range& each : known->second)
        if (!isWithin(each, fields))
            return name + " out of range in field " + std::to_string(each.field);
    if (name == "RMC" && !isASecondLater(fields[1])) return "drifting time";
    return "";
}

bool StreamInspector::isASecondLater(std::string_view time) {
    const auto two = [time](std::size_t at) {
        return std::atoi(std::string(time.substr(at, 2)).c_str());
    };
    constexpr int secondsADay = 86'400;
    const int now = ((two(0) * 60 + two(2)) * 60 + two(4)) * 100 + two(7);
    const int before = std::exchange(previousHundredths_, now);
    return before < 0 || (now - before + secondsADay * 100) % (secondsADay * 100) == 100;
}

}  // namespace tidewright::soak
