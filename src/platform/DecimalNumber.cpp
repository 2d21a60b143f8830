#include "platform/DecimalNumber.h"

#include <fast_float/fast_float.h>

#include <cmath>
#include <system_error>

namespace tidewright::platform {

namespace {

bool hasDigitFrom(std::string_view digits, std::string_view text) {
    return text.find_first_of(digits) != std::string_view::npos;
}

/// Whether `value`, infinite or zero, is all that a double can hold of what `text` says.
bool isBeyondRange(double value, std::string_view text) {
    if (std::isinf(value)) return hasDigitFrom("0123456789", text);
    return value == 0 && hasDigitFrom("123456789", text.substr(0, text.find_first_of("eE")));
}

}  // namespace

std::optional<double> decimalNumber(std::string_view text) {
    double number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = fast_float::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end || isBeyondRange(number, text)) return std::nullopt;
    return number;
}

}  // namespace tidewright::platform
