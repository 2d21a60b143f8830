#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "Golden.h"
#include "network/ClientList.h"
#include "network/LocalIP.h"

namespace tidewright::golden {

using namespace network;

namespace {

std::optional<std::string> optionalText(const Row& row, std::string_view column) {
    if (!row.has(column)) return std::nullopt;
    return row.text(column);
}

/// How clients from these hosts are listed, joined with blanks.
std::string listed(const std::vector<std::string>& hosts) {
    std::vector<ConnectedClient> clients;
    for (const std::string& each : hosts) clients.push_back({clients.size() + 1, describe(each)});
    sortClients(clients);
    std::vector<std::string_view> addresses;
    for (const ConnectedClient& each : clients) addresses.push_back(each.address);
    return fmt::format("{}", fmt::join(addresses, " "));
}

void compareInterfaceList(const std::vector<Row>& rows) {
    std::vector<InterfaceAddress> entries;
    FriendlyNames names;
    for (const Row& row : rows) {
        entries.push_back({.name = row.text("name"),
                           .up = row.flag("up"),
                           .loopback = row.flag("loopback"),
                           .isIPv4 = row.text("family") == "inet",
                           .ip = optionalText(row, "ip"),
                           .mask = optionalText(row, "mask")});
        if (row.has("friendlyName")) names[row.text("name")] = row.text("friendlyName");
    }
    const auto kept = LocalIP::allInterfaces(entries, names);
    const auto best = LocalIP::best(kept);
    auto next = kept.begin();
    for (const Row& row : rows) {
        const bool isNext =
            next != kept.end() && next->bsdName == row.text("name") && next->ip == row.text("ip");
        row.expectFlag("kept", isNext);
        row.expectFlag("isBest", isNext && best == *next);
        if (!isNext) continue;
        row.expectText("displayName", next->displayName);
        row.expectText("broadcast", next->broadcast);
        ++next;
    }
    if (next != kept.end()) rows.front().fail("an interface too many is kept");
}

}  // namespace

void compareNetwork(Tables& tables) {
    for (const Row& row : tables["interface_private"].rows())
        row.expectFlag("private", LocalIP::isPrivate(row.text("ip")));
    for (const Row& row : tables["interface_broadcast"].rows())
        row.expectText("broadcast", LocalIP::broadcastAddress(row.text("ip"), row.text("mask")));

    Table& list = tables["interface_list"];
    std::vector<std::string> cases;
    for (const Row& row : list.rowsWhere("entry", "0")) cases.push_back(row.text("case"));
    for (const std::string& each : cases) compareInterfaceList(list.rowsWhere("case", each));

    for (const Row& row : tables["client_list"].rows())
        row.expectText("listed", listed(split(row.text("hosts"), ' ')));
}

}  // namespace tidewright::golden
