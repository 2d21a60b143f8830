#pragma once

#include <optional>
#include <string_view>

namespace tidewright::platform {

/// `text`, the whole of it, as the nearest double: digits with an optional "-", point and exponent,
/// or inf, infinity or nan in any case. The point is "." in every locale. Nothing for any other
/// text
/// ("+" in front included) and for a number beyond the range of a double, too large or too small.
///
/// It is std::from_chars, which not every C++ library has for numbers with a point.
std::optional<double> decimalNumber(std::string_view text);

}  // namespace tidewright::platform
