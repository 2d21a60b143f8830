#include "network/ClientList.h"

#include <algorithm>
#include <tuple>

namespace tidewright::network {

std::string describe(std::string_view address) {
    constexpr std::string_view mapped = "::ffff:";
    const auto host = address.substr(0, address.find('%'));
    const bool isMapped = host.starts_with(mapped) && host.find('.') != std::string_view::npos;
    return std::string(isMapped ? host.substr(mapped.size()) : host);
}

void sortClients(std::vector<ConnectedClient>& clients) {
    std::sort(clients.begin(), clients.end(), [](const auto& left, const auto& right) {
        return std::tie(left.address, left.number) < std::tie(right.address, right.number);
    });
}

}  // namespace tidewright::network
