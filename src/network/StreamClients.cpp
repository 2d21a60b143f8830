#include "network/StreamClients.h"

#include <algorithm>
#include <asio/io_context.hpp>
#include <chrono>
#include <iterator>
#include <utility>

#include "network/ClientList.h"
#include "network/ClosingClients.h"

namespace tidewright::network {

namespace {

/// A burst that goes past this is flushed on its way, or it would overrun the tape by itself.
constexpr std::size_t burstBytes = 64 * 1024;

/// How often to look whether everything is sent: for two seconds.
constexpr auto betweenLooks = std::chrono::milliseconds(5);
constexpr int looksWhetherAllIsSent = 400;

/// After so many clients the queue serves what else waits, new clients for instance.
constexpr int clientsATurn = 256;

}  // namespace

bool StreamClients::add(asio::ip::tcp::socket socket, std::int64_t limit) {
    asio::error_code error;
    const auto remote = socket.remote_endpoint(error);
    if (error) return false;
    const std::uint64_t number = ++latestNumber_;
    const auto client = std::make_shared<TCPClient>(
        std::move(socket), ConnectedClient{number, describe(remote.address().to_string())}, tape_,
        [this](const TCPClient& failed) { remove(failed); });
    if (limit > 0 && std::ssize(clients_) >= limit) {
        close({{number, client}});
        return false;
    }
    clients_.emplace(number, client);
    client->start();
    changed_();
    return true;
}

void StreamClients::broadcast(SharedBytes sentence) {
    if (clients_.empty() || sentence->empty()) return;
    unflushedBytes_ += sentence->size();
    tape_.append(std::move(sentence));
    if (unflushedBytes_ > burstBytes) {
        flush();
    } else {
        flushSoon();
    }
}

void StreamClients::flushSoon() {
    if (std::exchange(flushIsPosted_, true)) return;
    queue_.post([this] {
        flushIsPosted_ = false;
        unflushedBytes_ = 0;
        flushFrom(0);
    });
}

void StreamClients::flushFrom(std::uint64_t number) {
    auto next = clients_.lower_bound(number);
    for (int i = 0; i < clientsATurn && next != clients_.end(); ++i) {
        const auto client = next++->second;  // which is removed meanwhile if it fails
        client->send();
    }
    if (next != clients_.end())
        queue_.post([this, following = next->first] { flushFrom(following); });
}

void StreamClients::flush() {
    unflushedBytes_ = 0;
    for (auto next = clients_.begin(); next != clients_.end();) {
        const auto client = next++->second;
        client->send();
    }
}

void StreamClients::remove(const TCPClient& client) {
    missedByTheGone_ += client.traffic().missedSentences;
    clients_.erase(client.identity().number);
    changed_();
}

void StreamClients::closeAll() {
    flush();
    if (!clients_.empty()) close(std::exchange(clients_, {}));
}

bool StreamClients::close(std::uint64_t number) {
    flush();
    Clients one;
    one.insert(clients_.extract(number));
    if (one.empty()) return false;
    close(one);
    return true;
}

void StreamClients::close(const Clients& clients) {
    ClosingClients::Clients group;
    group.reserve(clients.size());
    for (const auto& [number, client] : clients) {
        missedByTheGone_ += client->traffic().missedSentences;
        group.push_back(client);
    }
    ++groupsBeingClosed_;
    std::make_shared<ClosingClients>(queue_.context(), std::move(group), [this] {
        countClosed();
    })->start();
}

void StreamClients::whenAllSent(Closed sent) {
    flush();
    whenAllSent_ = std::move(sent);
    looksLeft_ = looksWhetherAllIsSent;
    pause_ = std::make_unique<asio::steady_timer>(queue_.context());
    lookWhetherAllIsSent();
}

void StreamClients::lookWhetherAllIsSent() {
    const bool isAllSent = std::ranges::all_of(
        clients_, [](const auto& client) { return client.second->hasEverything(); });
    if (isAllSent || looksLeft_-- == 0) {
        pause_.reset();
        return std::exchange(whenAllSent_, {})();
    }
    pause_->expires_after(betweenLooks);
    pause_->async_wait([this](const asio::error_code& error) {
        if (!error) lookWhetherAllIsSent();
    });
}

void StreamClients::countClosed() {
    if (--groupsBeingClosed_ > 0) return;
    for (const Closed& closed : std::exchange(whenClosed_, {})) closed();
}

void StreamClients::whenClosed(Closed closed) {
    if (groupsBeingClosed_ == 0) return closed();
    whenClosed_.push_back(std::move(closed));
}

std::vector<ConnectedClient> StreamClients::list() const {
    std::vector<ConnectedClient> list;
    list.reserve(clients_.size());
    for (const auto& [number, client] : clients_) list.push_back(client->identity());
    sortClients(list);
    return list;
}

std::vector<ClientTraffic> StreamClients::traffic() const {
    std::vector<ClientTraffic> traffic;
    traffic.reserve(clients_.size());
    for (const auto& [number, client] : clients_) traffic.push_back(client->traffic());
    return traffic;
}

std::uint64_t StreamClients::missedSentences() const {
    std::uint64_t missed = missedByTheGone_;
    for (const auto& [number, client] : clients_) missed += client->traffic().missedSentences;
    return missed;
}

}  // namespace tidewright::network
