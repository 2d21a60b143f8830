#include "ui/PortNumber.h"

#include <charconv>
#include <system_error>

namespace tidewright::ui {

std::optional<std::uint16_t> portNumber(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return std::nullopt;
    text = text.substr(first, text.find_last_not_of(blanks) - first + 1);
    std::uint16_t port = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, port);
    if (error != std::errc() || stop != end) return std::nullopt;
    return port;
}

}  // namespace tidewright::ui
