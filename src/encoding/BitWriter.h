#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tidewright::encoding {

/// An AIS payload as text, and how many zero bits were added to fill its last character (0 to 5).
struct ArmoredBits {
    std::string text;
    int fillBits = 0;

    bool operator==(const ArmoredBits&) const = default;
};

/// A growing sequence of bits, first written first, and its six-bit armour (ITU-R M.1371 fields,
/// AIVDM payload characters).
class BitWriter {
public:
    BitWriter() { sextets_.reserve(longestMessage); }

    /// Appends the low `bits` bits of `value`, most significant first; beyond 64 the value is
    /// continued with zeros. Fewer than 1 appends nothing. Negative quantities come as two's
    /// complement.
    void append(std::uint64_t value, int bits);

    /// Appends `text` (UTF-8) as `chars` six-bit characters: upper case, cut or padded with "@".
    void appendString(std::string_view text, int chars);

    ArmoredBits armored() const;

private:
    static constexpr int sextetBits = 6;
    static constexpr std::size_t longestMessage = 71;  // sextets of message 5

    std::vector<std::uint8_t> sextets_;  // the last one filled from the top
    int freeBits_ = 0;                   // in the last one
};

}  // namespace tidewright::encoding
