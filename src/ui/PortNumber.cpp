#include "ui/PortNumber.h"

#include <charconv>
#include <system_error>

namespace tidewright::ui {

std::optional<std::uint16_t> portNumber(std::string_view text) {
    std::uint16_t port = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, port);
    if (error != std::errc() || stop != end) return std::nullopt;
    return port;
}

}  // namespace tidewright::ui
