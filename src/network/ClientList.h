#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "network/ConnectedClient.h"

namespace tidewright::network {

/// How a client's address is shown: without the scope that may follow an IPv6 address after a "%",
/// and as plain IPv4 if it is an IPv4 address written as IPv6 ("::ffff:192.168.1.20").
std::string describe(std::string_view address);

/// The order in which clients are listed: by address as text, then by number.
void sortClients(std::vector<ConnectedClient>& clients);

}  // namespace tidewright::network
