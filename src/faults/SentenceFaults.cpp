#include "faults/SentenceFaults.h"

#include <cstddef>
#include <optional>
#include <string_view>

#include "encoding/TagBlock.h"

namespace tidewright::faults {

namespace {

constexpr std::string_view digits = "0123456789ABCDEF";

/// 0 to 15; nothing for what is no hexadecimal digit, in either case.
std::optional<std::size_t> digitValue(char digit) {
    if (digit >= 'a' && digit <= 'f') digit = static_cast<char>(digit - 'a' + 'A');
    const auto value = digits.find(digit);
    if (value == std::string_view::npos) return std::nullopt;
    return value;
}

/// Where the line end stands, or would.
std::size_t endOf(std::string_view sentence) {
    return sentence.ends_with("\r\n") ? sentence.size() - 2 : sentence.size();
}

/// Inverts every bit of the checksum of a sentence that ends in one. A TAG block has one of its
/// own, which is not the sentence's.
void invertChecksum(std::string& sentence) {
    const std::size_t end = endOf(sentence);
    if (end < encoding::tagBlockSize(sentence) + 3 || sentence[end - 3] != '*') return;
    const auto high = digitValue(sentence[end - 2]);
    const auto low = digitValue(sentence[end - 1]);
    if (!high || !low) return;
    sentence[end - 2] = digits[15 - *high];
    sentence[end - 1] = digits[15 - *low];
}

}  // namespace

std::vector<std::string> SentenceFaults::apply(std::vector<std::string> sentences) const {
    if (faults_.invalidChecksum)
        for (std::string& each : sentences) invertChecksum(each);
    return sentences;
}

}  // namespace tidewright::faults
