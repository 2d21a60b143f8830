#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tidewright::ui {

/// The port that a user typed: a whole number within 0 to 65535 in ASCII digits, with nothing but
/// blanks around it.
std::optional<std::uint16_t> portNumber(std::string_view text);

}  // namespace tidewright::ui
