#include "network/ClosingClients.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <utility>

namespace tidewright::network {

namespace {
using namespace std::chrono_literals;

constexpr auto betweenLooks = 1ms;

/// How long to wait for so many, so that closing them all afterwards ends in time too.
std::chrono::microseconds patienceWith(std::size_t clients) {
    constexpr std::chrono::microseconds inAll = 180ms;
    constexpr std::chrono::microseconds least = 10ms;
    constexpr auto closingOne = 45us;
    return std::max(least, inAll - closingOne * static_cast<std::int64_t>(clients));
}

}  // namespace

ClosingClients::ClosingClients(asio::io_context& context, Clients clients,
                               std::function<void()> closed)
    : clients_(std::move(clients)),
      closed_(std::move(closed)),
      pause_(context),
      deadline_(context) {}

void ClosingClients::start() {
    for (const auto& client : clients_) client->stop();
    awaitDeadline();
    closeWhoAcknowledged();
}

void ClosingClients::closeWhoAcknowledged() {
    std::erase_if(clients_, [](const std::shared_ptr<TCPClient>& client) {
        const bool isReady = client->isReadyToClose();
        if (isReady) client->close();
        return isReady;
    });
    if (clients_.empty()) {
        finish();
    } else {
        awaitAcknowledgements();
    }
}

/// Nothing announces them.
void ClosingClients::awaitAcknowledgements() {
    pause_.expires_after(betweenLooks);
    pause_.async_wait([self = shared_from_this()](const asio::error_code& error) {
        if (!error && self->closed_) self->closeWhoAcknowledged();
    });
}

void ClosingClients::awaitDeadline() {
    deadline_.expires_after(patienceWith(clients_.size()));
    deadline_.async_wait([self = shared_from_this()](const asio::error_code& error) {
        if (!error && self->closed_) self->finish();
    });
}

void ClosingClients::finish() {
    clients_.clear();
    pause_.cancel();
    deadline_.cancel();
    std::exchange(closed_, {})();
}

}  // namespace tidewright::network
