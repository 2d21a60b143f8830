#pragma once

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tidewright::fuzz {

/// The bytes of one input, which must outlive this and the texts that it gives, read from the front
/// as the values that a subject asks for. Once they are spent, numbers are 0, or the lowest
/// possible, and texts are empty.
class FuzzInput {
public:
    explicit FuzzInput(std::string_view bytes) : rest_(bytes) {}

    bool isSpent() const { return rest_.empty(); }

    std::string_view rest() { return text(rest_.size()); }

    /// At most `longest` bytes.
    std::string_view text(std::size_t longest) {
        const auto text = rest_.substr(0, longest);
        rest_.remove_prefix(text.size());
        return text;
    }

    /// Up to `end` or the last byte; `end` itself is passed over.
    std::string_view textUpTo(char end) {
        const auto text = rest_.substr(0, rest_.find(end));
        rest_.remove_prefix(std::min(text.size() + 1, rest_.size()));
        return text;
    }

    /// Eight bytes, the least significant first.
    std::uint64_t bits() {
        std::uint64_t bits = 0;
        const auto bytes = text(8);
        for (auto byte = bytes.rbegin(); byte != bytes.rend(); ++byte)
            bits = bits << 8 | static_cast<std::uint8_t>(*byte);
        return bits;
    }

    /// Whether one byte is odd.
    bool flag() { return !rest_.empty() && text(1).front() % 2 != 0; }

    /// Within `low` and `high`, both included and less than 2^63 apart.
    std::int64_t whole(std::int64_t low, std::int64_t high) {
        const auto choices = static_cast<std::uint64_t>(high - low) + 1;
        return low + static_cast<std::int64_t>(bits() % choices);
    }

    /// Within `low` and `high`, both included and a finite distance apart: the double that the bits
    /// spell if it lies there, so that every such number can come, else one by their share.
    double number(double low, double high) {
        const std::uint64_t chosen = bits();
        const auto spelt = std::bit_cast<double>(chosen);
        if (low <= spelt && spelt <= high) return spelt;
        return std::clamp(low + (high - low) * std::ldexp(static_cast<double>(chosen), -64), low,
                          high);
    }

private:
    std::string_view rest_;
};

/// What each subject defines: tries one input and stops the program if anything is wrong.
void tryInput(FuzzInput input);

}  // namespace tidewright::fuzz
