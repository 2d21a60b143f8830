#include "encoding/BitWriter.h"

#include <algorithm>

#include "encoding/SixBitText.h"

namespace tidewright::encoding {

void BitWriter::append(std::uint64_t value, int bits) {
    while (bits > 0) {
        if (freeBits_ == 0) {
            sextets_.push_back(0);
            freeBits_ = sextetBits;
        }
        const int taken = std::min(bits, freeBits_);
        bits -= taken;
        freeBits_ -= taken;
        if (bits >= 64) continue;
        const std::uint64_t chunk = (value >> bits) & ((1U << taken) - 1);
        sextets_.back() = static_cast<std::uint8_t>(sextets_.back() | (chunk << freeBits_));
    }
}

void BitWriter::appendString(std::string_view text, int chars) {
    for (const std::uint8_t value : sixBitText(text, chars)) append(value, sextetBits);
}

ArmoredBits BitWriter::armored() const {
    ArmoredBits armored{.text = std::string(sextets_.size(), '\0'), .fillBits = freeBits_};
    std::ranges::transform(sextets_, armored.text.begin(), [](std::uint8_t value) {
        return static_cast<char>(value < 40 ? value + 48 : value + 56);
    });
    return armored;
}

}  // namespace tidewright::encoding
