#include "network/Audience.h"

#include <chrono>
#include <thread>
#include <utility>

#include "network/ClientList.h"

namespace tidewright::network {

namespace {
using namespace std::chrono_literals;

using Clients = std::vector<std::shared_ptr<TCPClient>>;

/// A burst that goes past this is flushed on its way, lest it overrun the tape by itself.
constexpr std::size_t burstBytes = 64 * 1024;

/// Lets go of those whose sentences have arrived.
void leaveSettled(Clients& clients) {
    std::erase_if(clients, [](const std::shared_ptr<TCPClient>& client) {
        const bool settled = client->isSettled();
        if (settled) client->leave();
        return settled;
    });
}

/// Waits for the acknowledgements, which nothing announces; whoever is left then is reset.
void farewell(Clients clients) {
    constexpr int patience = 200;
    leaveSettled(clients);
    for (int turn = 0; turn < patience && !clients.empty(); ++turn) {
        std::this_thread::sleep_for(1ms);
        leaveSettled(clients);
    }
}

}  // namespace

void Audience::admit(asio::ip::tcp::socket socket) {
    asio::error_code error;
    const auto remote = socket.remote_endpoint(error);
    if (error) return;
    clients_.push_back(
        std::make_shared<TCPClient>(std::move(socket), remote.address().to_string(), tape_,
                                    [this](const TCPClient& client) { lose(client); }));
    clients_.back()->listen();
    reportChange();
}

void Audience::tell(SharedBytes sentence) {
    if (clients_.empty() || sentence->empty()) return;
    unflushedBytes_ += sentence->size();
    tape_.append(std::move(sentence));
    if (unflushedBytes_ > burstBytes) {
        flush();
    } else {
        flushSoon();
    }
}

void Audience::flushSoon() {
    if (std::exchange(flushIsPosted_, true)) return;
    post_([this] {
        flushIsPosted_ = false;
        flush();
    });
}

void Audience::flush() {
    unflushedBytes_ = 0;
    const Clients everyone = clients_;  // those who fail leave clients_ meanwhile
    for (const auto& client : everyone) client->send();
}

void Audience::lose(const TCPClient& client) {
    const auto isTheOne = [&](const auto& other) { return other.get() == &client; };
    if (std::erase_if(clients_, isTheOne) > 0) reportChange();
}

void Audience::dismiss() {
    flush();
    Clients leaving = std::exchange(clients_, {});
    reportChange();
    farewell(std::move(leaving));
}

void Audience::reportChange() const {
    std::vector<std::string> addresses;
    addresses.reserve(clients_.size());
    for (const auto& client : clients_) addresses.push_back(client->address());
    changed_(clientList(addresses));
}

}  // namespace tidewright::network
