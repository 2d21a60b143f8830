#include "SentenceFrame.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

#include "platform/Check.h"

namespace tidewright::fuzz {

using platform::check;

namespace {

constexpr std::size_t tailLength = 5;  // "*hh", CR, LF

bool isPlain(char each) {
    return each >= ' ' && each <= '~' && each != '$' && each != '!' && each != '*';
}

bool isUpperHex(char each) {
    return (each >= '0' && each <= '9') || (each >= 'A' && each <= 'F');
}

unsigned sumOf(std::string_view body) {
    unsigned sum = 0;
    for (const char each : body) sum ^= static_cast<std::uint8_t>(each);
    return sum;
}

}  // namespace

void checkFrame(std::string_view sentence, char start, bool corrupt) {
    check(sentence.size() > tailLength && sentence.front() == start, "a sentence has its start");
    const auto body = sentence.substr(1, sentence.size() - 1 - tailLength);
    const auto tail = sentence.substr(1 + body.size());
    check(std::ranges::all_of(body, isPlain), "a sentence is plain text");
    check(tail.front() == '*' && tail.ends_with("\r\n"), "a sentence has its end");
    const auto digits = tail.substr(1, 2);
    check(std::ranges::all_of(digits, isUpperHex), "a checksum is in capitals");
    unsigned sent = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), sent, 16);
    check(sent == (corrupt ? sumOf(body) ^ 0xFF : sumOf(body)),
          "a checksum is right, or all wrong");
}

}  // namespace tidewright::fuzz
