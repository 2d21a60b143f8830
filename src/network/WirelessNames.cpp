#include "network/WirelessNames.h"

#include <system_error>

namespace tidewright::network {

namespace {

bool isWireless(const std::filesystem::path& interface) {
    std::error_code ignored;
    return std::filesystem::exists(interface / "wireless", ignored) ||
           std::filesystem::exists(interface / "phy80211", ignored);
}

}  // namespace

FriendlyNames wirelessNames(const std::filesystem::path& root) {
    FriendlyNames names;
    std::error_code error;
    std::filesystem::directory_iterator interface(root, error);
    while (!error && interface != std::filesystem::directory_iterator()) {
        if (isWireless(interface->path())) names[interface->path().filename()] = "Wi-Fi";
        interface.increment(error);
    }
    return names;
}

}  // namespace tidewright::network
