#include "encoding/SixBitText.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>

namespace tidewright::encoding {

namespace {

struct Scalar {
    char32_t code;
    std::size_t length;  // bytes
};

/// The first scalar of `text`, which is not empty. A byte that begins none counts as one of its
/// own.
Scalar firstScalar(std::string_view text) {
    const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned lead = byte(0);
    if (lead < 0x80) return {lead, 1};
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < length) return {0xFFFD, 1};
    char32_t code = lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80) return {0xFFFD, 1};
        code = code << 6 | (byte(i) & 0x3FU);
    }
    return {code, length};
}

struct Capital {
    char32_t letter;
    std::u32string_view upperCase;
};

/// The letters outside ASCII whose capitals are inside it.
constexpr std::array<Capital, 10> strangers{{{U'ß', U"SS"},
                                             {U'ı', U"I"},
                                             {U'ſ', U"S"},
                                             {U'ﬀ', U"FF"},
                                             {U'ﬁ', U"FI"},
                                             {U'ﬂ', U"FL"},
                                             {U'ﬃ', U"FFI"},
                                             {U'ﬄ', U"FFL"},
                                             {U'ﬅ', U"ST"},
                                             {U'ﬆ', U"ST"}}};

std::uint8_t sixBitValue(char32_t code) {
    if (code >= 'a' && code <= 'z') code -= 'a' - 'A';
    if (code >= 64 && code <= 95) return static_cast<std::uint8_t>(code - 64);
    if (code >= 32 && code <= 63) return static_cast<std::uint8_t>(code);
    return 0;
}

}  // namespace

std::vector<std::uint8_t> sixBitText(std::string_view text, int chars) {
    const auto size = static_cast<std::size_t>(chars);
    std::vector<std::uint8_t> values;
    values.reserve(size + 2);
    while (!text.empty() && values.size() < size) {
        const auto [code, length] = firstScalar(text);
        text.remove_prefix(length);
        const auto stranger = std::ranges::find(strangers, code, &Capital::letter);
        if (stranger == strangers.end())
            values.push_back(sixBitValue(code));
        else
            std::ranges::transform(stranger->upperCase, std::back_inserter(values), sixBitValue);
    }
    values.resize(size);
    return values;
}

}  // namespace tidewright::encoding
