#include "encoding/SentenceTime.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>

#include "encoding/TagBlock.h"

namespace tidewright::encoding {

namespace {

constexpr std::size_t mostDigits = 18;  // whose number fits

struct TimedSentence {
    std::string_view name;
    int field;  ///< that holds the time; the first after the name is 1
};

constexpr std::array timedSentences{TimedSentence{"RMC", 1}, TimedSentence{"GGA", 1},
                                    TimedSentence{"GLL", 5}, TimedSentence{"ZDA", 1}};

bool isDigit(char each) {
    return each >= '0' && each <= '9';
}

bool isCapital(char each) {
    return each >= 'A' && each <= 'Z';
}

/// Nothing unless `text` is digits, at least one.
std::optional<std::int64_t> number(std::string_view text) {
    if (text.empty() || text.size() > mostDigits || !std::ranges::all_of(text, isDigit))
        return std::nullopt;
    std::int64_t value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

/// Takes the front of `text` up to `end`, which is passed over, or all of it.
std::string_view takeUpTo(char end, std::string_view& text) {
    const auto front = text.substr(0, text.find(end));
    text.remove_prefix(std::min(front.size() + 1, text.size()));
    return front;
}

/// What a TAG block's field says, where it is the one of the time.
std::optional<std::chrono::milliseconds> unixTime(std::string_view field) {
    constexpr std::size_t mostDigitsOfSeconds = 10;
    if (!field.starts_with("c:")) return std::nullopt;
    const std::string_view digits = field.substr(2);
    const auto value = number(digits);
    if (!value) return std::nullopt;
    if (digits.size() <= mostDigitsOfSeconds) return std::chrono::seconds(*value);
    return std::chrono::milliseconds(*value);
}

/// `block` without its backslashes.
std::optional<std::chrono::milliseconds> timeInBlock(std::string_view block) {
    std::string_view fields = takeUpTo('*', block);
    while (!fields.empty())
        if (const auto time = unixTime(takeUpTo(',', fields))) return time;
    return std::nullopt;
}

/// Of the digits behind the point of a second.
std::optional<std::chrono::nanoseconds> fraction(std::string_view digits) {
    if (!std::ranges::all_of(digits, isDigit)) return std::nullopt;
    std::int64_t value = 0;
    for (std::size_t i = 0; i < 9; ++i)
        value = 10 * value + (i < digits.size() ? digits[i] - '0' : 0);
    return std::chrono::nanoseconds(value);
}

/// Of "hhmmss", with a point and a fraction or without.
std::optional<std::chrono::nanoseconds> clockTime(std::string_view text) {
    const std::string_view whole = takeUpTo('.', text);
    const auto clock = number(whole);
    const auto rest = fraction(text);
    if (whole.size() != 6 || !clock || !rest) return std::nullopt;
    const auto hours = *clock / 10'000;
    const auto minutes = *clock / 100 % 100;
    const auto seconds = *clock % 100;
    if (hours > 23 || minutes > 59 || seconds > 59) return std::nullopt;
    return std::chrono::hours(hours) + std::chrono::minutes(minutes) +
           std::chrono::seconds(seconds) + *rest;
}

/// The field of this number, up to the next one, the checksum or the line end.
std::string_view field(std::string_view sentence, int number) {
    for (int i = 0; i < number; ++i) takeUpTo(',', sentence);
    return sentence.substr(0, sentence.find_first_of(",*\r\n"));
}

}  // namespace

std::optional<std::chrono::milliseconds> tagBlockTime(std::string_view line) {
    std::string_view blocks = line.substr(0, tagBlockSize(line));
    while (!blocks.empty()) {
        blocks.remove_prefix(1);
        if (const auto time = timeInBlock(takeUpTo('\\', blocks))) return time;
    }
    return std::nullopt;
}

std::optional<TimeOfDay> timeOfDay(std::string_view line) {
    const std::string_view sentence = line.substr(tagBlockSize(line));
    if (sentence.size() < 7 || sentence[0] != '$' || sentence[6] != ',') return std::nullopt;
    const std::string_view talker = sentence.substr(1, 2);
    const std::string_view name = sentence.substr(3, 3);
    const auto timed = std::ranges::find(timedSentences, name, &TimedSentence::name);
    if (timed == timedSentences.end() || !std::ranges::all_of(talker, isCapital))
        return std::nullopt;
    const auto time = clockTime(field(sentence, timed->field));
    if (!time) return std::nullopt;
    return TimeOfDay{.talker = std::string(talker), .sinceMidnight = *time};
}

}  // namespace tidewright::encoding
