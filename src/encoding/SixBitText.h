#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace tidewright::encoding {

/// `text` (UTF-8) in the six-bit alphabet of AIS (ITU-R M.1371): upper-cased, one value from 0 to
/// 63 a character, cut or padded to `chars` (>= 0) values. What the alphabet lacks, and the
/// padding, is 0, shown as "@".
std::vector<std::uint8_t> sixBitText(std::string_view text, int chars);

}  // namespace tidewright::encoding
