#pragma once

#include <string>
#include <vector>

#include "network/ConnectedClient.h"

namespace tidewright::network {

/// Clients from these addresses, in this order, numbered from 1.
inline std::vector<ConnectedClient> numberedClients(const std::vector<std::string>& addresses) {
    std::vector<ConnectedClient> clients;
    for (const std::string& each : addresses) clients.push_back({clients.size() + 1, each});
    return clients;
}

}  // namespace tidewright::network
