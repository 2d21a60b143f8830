#include "network/ClientList.h"

#include <algorithm>

namespace tidewright::network {

std::string describe(std::string_view address) {
    constexpr std::string_view mapped = "::ffff:";
    const auto host = address.substr(0, address.find('%'));
    const bool isMapped = host.starts_with(mapped) && host.find('.') != std::string_view::npos;
    return std::string(isMapped ? host.substr(mapped.size()) : host);
}

std::vector<std::string> clientList(const std::vector<std::string>& addresses) {
    std::vector<std::string> list;
    list.reserve(addresses.size());
    for (const auto& address : addresses) list.push_back(describe(address));
    std::sort(list.begin(), list.end());
    return list;
}

}  // namespace tidewright::network
