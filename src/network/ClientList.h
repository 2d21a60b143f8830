#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tidewright::network {

/// How a client's address is shown: without the scope that may follow an IPv6 address after a "%",
/// and as plain IPv4 if it is one in IPv6 clothing ("::ffff:192.168.1.20").
std::string describe(std::string_view address);

/// How clients from these addresses are listed: one entry a client, sorted as text.
std::vector<std::string> clientList(const std::vector<std::string>& addresses);

}  // namespace tidewright::network
