#include "network/LocalIP.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cstdint>

namespace tidewright::network {

namespace {

std::optional<std::int64_t> integer(std::string_view text) {
    const bool plus = text.starts_with('+');
    if (plus) text.remove_prefix(1);
    if (plus && text.starts_with('-')) return std::nullopt;
    std::int64_t value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || stop != end) return std::nullopt;
    return value;
}

/// The whole numbers between the full stops; the other pieces are left out.
std::vector<std::int64_t> integers(std::string_view text) {
    std::vector<std::int64_t> numbers;
    while (!text.empty()) {
        const auto piece = text.substr(0, text.find('.'));
        if (const auto number = integer(piece)) numbers.push_back(*number);
        text.remove_prefix(std::min(piece.size() + 1, text.size()));
    }
    return numbers;
}

std::vector<std::int64_t> octets(std::string_view text) {
    auto numbers = integers(text);
    std::erase_if(numbers, [](std::int64_t number) { return number < 0 || number > 255; });
    return numbers;
}

bool isWithin(std::int64_t value, std::int64_t low, std::int64_t high) {
    return low <= value && value <= high;
}

bool isUsable(const InterfaceAddress& entry) {
    return entry.up && !entry.loopback && entry.isIPv4 && entry.ip && LocalIP::isPrivate(*entry.ip);
}

LocalInterface describe(const InterfaceAddress& entry, const FriendlyNames& friendlyNames) {
    const auto friendly = friendlyNames.find(entry.name);
    return {
        .bsdName = entry.name,
        .displayName = friendly == friendlyNames.end() ? entry.name : friendly->second,
        .ip = *entry.ip,
        .broadcast = LocalIP::broadcastAddress(*entry.ip, entry.mask.value_or("255.255.255.0"))};
}

/// By hand, for the letters A to Z alone: the C library's way depends on the desktop's language.
std::string inSmallLetters(std::string text) {
    for (char& letter : text) {
        if ('A' <= letter && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
    }
    return text;
}

bool saysWiFi(const LocalInterface& interface) {
    const std::string name = inSmallLetters(interface.displayName);
    return name.find("wi-fi") != std::string::npos || name.find("wifi") != std::string::npos;
}

bool isNamedLikeEthernet(const LocalInterface& interface) {
    return interface.bsdName.starts_with("en");
}

}  // namespace

std::vector<LocalInterface> LocalIP::allInterfaces() {
    return allInterfaces(interfaceAddresses(), friendlyNames());
}

std::vector<LocalInterface> LocalIP::allInterfaces(const std::vector<InterfaceAddress>& entries,
                                                   const FriendlyNames& friendlyNames) {
    std::vector<LocalInterface> interfaces;
    for (const auto& entry : entries) {
        if (isUsable(entry)) interfaces.push_back(describe(entry, friendlyNames));
    }
    return interfaces;
}

std::optional<LocalInterface> LocalIP::best() {
    return best(allInterfaces());
}

std::optional<LocalInterface> LocalIP::best(const std::vector<LocalInterface>& interfaces) {
    if (interfaces.empty()) return std::nullopt;
    for (const auto wanted : {saysWiFi, isNamedLikeEthernet}) {
        const auto found = std::find_if(interfaces.begin(), interfaces.end(), wanted);
        if (found != interfaces.end()) return *found;
    }
    return interfaces.front();
}

bool LocalIP::isPrivate(std::string_view ip) {
    const auto numbers = integers(ip);
    if (numbers.size() != 4) return false;
    switch (numbers[0]) {
        case 10:
            return true;
        case 172:
            return isWithin(numbers[1], 16, 31);
        case 192:
            return numbers[1] == 168;
        case 169:
            return numbers[1] == 254;
        default:
            return false;
    }
}

std::string LocalIP::broadcastAddress(std::string_view ip, std::string_view mask) {
    const auto address = octets(ip);
    const auto kept = octets(mask);
    if (address.size() != 4 || kept.size() != 4) return "255.255.255.255";
    const auto octet = [&](std::size_t i) { return address[i] | (~kept[i] & 0xFF); };
    return fmt::format("{}.{}.{}.{}", octet(0), octet(1), octet(2), octet(3));
}

}  // namespace tidewright::network
