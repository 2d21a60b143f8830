#include "ui/ClientsModel.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>

#include "ui/Texts.h"

namespace tidewright::ui {

using gateway::GatewayClient;

namespace {

/// As in "45 s", "3 min 05 s", "2 h 10 min".
std::string durationText(std::chrono::nanoseconds span) {
    const auto seconds = std::max<std::int64_t>(0, span / std::chrono::seconds(1));
    if (seconds < 60) return fmt::format("{} s", seconds);
    if (seconds < 3600) return fmt::format("{} min {:02} s", seconds / 60, seconds % 60);
    return fmt::format("{} h {:02} min", seconds / 3600, seconds / 60 % 60);
}

/// As in "512 o", "1.7 Ko", "12.3 Mo".
std::string bytesText(std::uint64_t bytes) {
    const auto count = static_cast<double>(bytes);
    if (bytes < 1024) return fmt::format("{} o", bytes);
    if (bytes < 1024 * 1024) return fmt::format("{:.1f} Ko", count / 1024);
    return fmt::format("{:.1f} Mo", count / (1024 * 1024));
}

std::string detailsText(const GatewayClient& client, platform::WallTime now) {
    std::string text = fmt::format("depuis {} · {} reçus", durationText(now - client.since),
                                   bytesText(client.sentBytes));
    if (client.missedSentences > 0)
        text += fmt::format(" · {} phrases manquées", client.missedSentences);
    return text;
}

}  // namespace

int ClientsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant ClientsModel::data(const QModelIndex& index, int role) const {
    const GatewayClient& client = rows_.at(static_cast<std::size_t>(index.row()));
    switch (role) {
        case NumberRole:
            return static_cast<double>(client.number);
        case AddressRole:
            return toQt(client.address);
        case DetailsRole:
            return toQt(detailsText(client, now_));
        default:
            return {};
    }
}

QHash<int, QByteArray> ClientsModel::roleNames() const {
    return {{NumberRole, "number"}, {AddressRole, "address"}, {DetailsRole, "details"}};
}

QString ClientsModel::beyondText() const {
    if (beyond_ == 0) return {};
    return toQt(beyond_ == 1 ? "et 1 autre client" : fmt::format("et {} autres clients", beyond_));
}

void ClientsModel::update(const std::vector<GatewayClient>& clients, platform::WallTime now) {
    const std::vector<GatewayClient> shown(
        clients.begin(),
        clients.begin() + static_cast<std::ptrdiff_t>(std::min(mostRows, clients.size())));
    now_ = now;
    removeThoseWhoLeft(shown);
    for (std::size_t row = 0; row < shown.size(); ++row) {
        if (row < rows_.size() && rows_[row].number == shown[row].number) {
            rows_[row] = shown[row];
            continue;
        }
        const auto place = static_cast<int>(row);
        beginInsertRows({}, place, place);
        rows_.insert(rows_.begin() + place, shown[row]);
        endInsertRows();
    }
    if (!rows_.empty())
        Q_EMIT dataChanged(index(0), index(rowCount() - 1), {AddressRole, DetailsRole});
    beyond_ = clients.size() - shown.size();
    Q_EMIT beyondTextChanged();
}

void ClientsModel::removeThoseWhoLeft(const std::vector<GatewayClient>& clients) {
    for (int row = rowCount() - 1; row >= 0; --row) {
        const auto at = rows_.begin() + row;
        if (std::ranges::find(clients, at->number, &GatewayClient::number) != clients.end())
            continue;
        beginRemoveRows({}, row, row);
        rows_.erase(at);
        endRemoveRows();
    }
}

}  // namespace tidewright::ui
