#pragma once

#include <asio/io_context.hpp>
#include <asio/steady_timer.hpp>
#include <functional>
#include <memory>
#include <vector>

#include "network/TCPClient.h"

namespace tidewright::network {

/// Clients on their way out: each is closed as soon as it has acknowledged what it was sent, and
/// reset if it has not soon: the last is gone within 0.2 s, sooner reset where there are thousands,
/// since that takes time too. Lives on the server's queue, which meanwhile serves the
/// others.
class ClosingClients : public std::enable_shared_from_this<ClosingClients> {
public:
    using Clients = std::vector<std::shared_ptr<TCPClient>>;

    /// `closed` is called once, when the last is closed.
    ClosingClients(asio::io_context& context, Clients clients, std::function<void()> closed);

    /// To be called once, when a shared_ptr owns this.
    void start();

private:
    void closeWhoAcknowledged();
    void awaitAcknowledgements();
    void awaitDeadline();
    void finish();

    Clients clients_;
    std::function<void()> closed_;
    asio::steady_timer pause_;
    asio::steady_timer deadline_;
};

}  // namespace tidewright::network
