#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tidewright::network {

/// One entry of the machine's list of interface addresses, as the system gives it.
struct InterfaceAddress {
    std::string name;  ///< the interface's system name, as in "en0" or "wlan0"
    bool up = false;
    bool loopback = false;
    bool isIPv4 = false;
    std::optional<std::string> ip = {};    ///< dotted decimal; nothing if it has no text form
    std::optional<std::string> mask = {};  ///< likewise; nothing too where there is no netmask
};

/// What the system lists now, in its order: one entry an address, whatever its family. Empty when
/// the system refuses to tell.
std::vector<InterfaceAddress> interfaceAddresses();

/// Whether `text` is an IPv4 address, in dotted decimal and nothing more.
bool isIPv4Address(const std::string& text);

}  // namespace tidewright::network
