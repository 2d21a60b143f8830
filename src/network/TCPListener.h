#pragma once

#include <asio/io_context.hpp>
#include <asio/ip/tcp.hpp>
#include <asio/steady_timer.hpp>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace tidewright::network {

/// Listens on one TCP port of every local address, IPv6 and IPv4, and accepts whoever comes; on
/// IPv4 alone where the host has no IPv6.
///
/// A port held by another program is never shared. Accepting goes on after a failure that passes, a
/// host out of descriptors for instance. Closed by its destruction, after which its callbacks do
/// nothing.
class TCPListener : public std::enable_shared_from_this<TCPListener> {
public:
    using Accepted = std::function<void(asio::ip::tcp::socket)>;
    using Failed = std::function<void(const asio::error_code&)>;

    /// Callbacks run on `context`; `failed` also inside listen(). After it, nothing more is
    /// accepted.
    TCPListener(asio::io_context& context, Accepted accepted, Failed failed);

    /// Makes the socket, and says why it cannot be made.
    asio::error_code open();

    /// Takes `port`, or one that the system picks for 0, and begins to accept. To be called once,
    /// after open(), when a shared_ptr owns the listener.
    void listen(std::uint16_t port);

    /// Where it listens; nothing where it could not take a port.
    std::optional<std::uint16_t> port() const;

private:
    asio::error_code openForBoth();
    asio::error_code bindAndListen(std::uint16_t port);
    void acceptNext();
    void finishAccept(const asio::error_code& error, asio::ip::tcp::socket socket);
    void acceptMore();
    void acceptAfterPause();

    asio::ip::tcp::acceptor acceptor_;
    asio::steady_timer pause_;
    Accepted accepted_;
    Failed failed_;
    asio::ip::tcp protocol_ = asio::ip::tcp::v6();
};

}  // namespace tidewright::network
