#include "network/TCPListener.h"

#include <asio/error.hpp>
#include <asio/ip/v6_only.hpp>
#include <cerrno>
#include <utility>

namespace tidewright::network {

namespace {
using namespace std::chrono_literals;

/// After so many the queue serves what else waits.
constexpr int connectionsATurn = 64;

/// The connection was lost before it could be accepted; that says nothing about the next one.
bool concernsOneConnection(const asio::error_code& error) {
    switch (error.value()) {
        case ECONNABORTED:
        case EPROTO:
        case ENETDOWN:
        case ENETUNREACH:
        case EHOSTDOWN:
        case EHOSTUNREACH:
            return true;
        default:
            return false;
    }
}

bool hostLacksResources(const asio::error_code& error) {
    switch (error.value()) {
        case EMFILE:
        case ENFILE:
        case ENOBUFS:
        case ENOMEM:
        case ENOSPC:
            return true;
        default:
            return false;
    }
}

}  // namespace

TCPListener::TCPListener(asio::io_context& context, Accepted accepted, Failed failed)
    : acceptor_(context),
      pause_(context),
      accepted_(std::move(accepted)),
      failed_(std::move(failed)) {}

asio::error_code TCPListener::open() {
    asio::error_code error = openForBoth();
    if (error == asio::error::address_family_not_supported) {
        protocol_ = asio::ip::tcp::v4();
        acceptor_.open(protocol_, error);
    }
    return error;
}

asio::error_code TCPListener::openForBoth() {
    asio::error_code error;
    acceptor_.open(protocol_, error);
    if (!error) acceptor_.set_option(asio::ip::v6_only(false), error);
    return error;
}

void TCPListener::listen(std::uint16_t port) {
    if (const auto error = bindAndListen(port)) {
        failed_(error);
    } else {
        acceptNext();
    }
}

asio::error_code TCPListener::bindAndListen(std::uint16_t port) {
    asio::error_code error;
    acceptor_.bind({protocol_, port}, error);
    if (!error) acceptor_.listen(asio::socket_base::max_listen_connections, error);
    if (!error) acceptor_.non_blocking(true, error);
    return error;
}

std::optional<std::uint16_t> TCPListener::port() const {
    asio::error_code error;
    const auto endpoint = acceptor_.local_endpoint(error);
    if (error || endpoint.port() == 0) return std::nullopt;
    return endpoint.port();
}

void TCPListener::acceptNext() {
    acceptor_.async_accept(
        [weak = weak_from_this()](const asio::error_code& error, asio::ip::tcp::socket socket) {
            if (const auto self = weak.lock()) self->finishAccept(error, std::move(socket));
        });
}

/// Without waiting. A failure here is met again, and handled, by the next wait.
void TCPListener::acceptMore() {
    asio::error_code error;
    for (int i = 0; i < connectionsATurn; ++i) {
        asio::ip::tcp::socket socket = acceptor_.accept(error);
        if (error) return;
        accepted_(std::move(socket));
    }
}

void TCPListener::finishAccept(const asio::error_code& error, asio::ip::tcp::socket socket) {
    if (!error) {
        accepted_(std::move(socket));
        acceptMore();
        acceptNext();
    } else if (concernsOneConnection(error)) {
        acceptNext();
    } else if (hostLacksResources(error)) {
        acceptAfterPause();
    } else {
        failed_(error);
    }
}

void TCPListener::acceptAfterPause() {
    pause_.expires_after(100ms);
    pause_.async_wait([weak = weak_from_this()](const asio::error_code& error) {
        if (const auto self = weak.lock(); self && !error) self->acceptNext();
    });
}

}  // namespace tidewright::network
