#include "network/TCPClient.h"

#include <algorithm>
#include <array>
#include <asio/buffer.hpp>
#include <asio/error.hpp>
#include <span>
#include <utility>

#include "network/SocketState.h"

namespace tidewright::network {

namespace {

constexpr std::size_t sentencesAWrite = 64;  // what Asio hands to the system in one call

/// Closing throws away what the system still holds and frees the port at once, instead of leaving
/// the connection behind for a minute during which no new listener could have the port.
void prepare(asio::ip::tcp::socket& socket) {
    asio::error_code ignored;
    socket.non_blocking(true, ignored);
    socket.set_option(asio::socket_base::linger(true, 0), ignored);
    socket.set_option(asio::ip::tcp::no_delay(true), ignored);
}

bool isFull(const asio::error_code& error) {
    return error == asio::error::would_block || error == asio::error::try_again;
}

/// Trouble of the host rather than of the connection: the next sentence tries again.
bool isPassing(const asio::error_code& error) {
    return error == asio::error::no_buffer_space || error == asio::error::no_memory;
}

std::size_t write(asio::ip::tcp::socket& socket, std::span<const std::string_view> pieces,
                  asio::error_code& error) {
    std::array<asio::const_buffer, sentencesAWrite> buffers;
    std::transform(pieces.begin(), pieces.end(), buffers.begin(),
                   [](std::string_view piece) { return asio::buffer(piece); });
    return socket.write_some(std::span(buffers).first(pieces.size()), error);
}

}  // namespace

TCPClient::TCPClient(asio::ip::tcp::socket socket, std::string address, const SentenceTape& tape,
                     Gone gone)
    : socket_(std::move(socket)),
      address_(std::move(address)),
      tape_(tape),
      reader_(tape.end()),
      gone_(std::move(gone)) {
    prepare(socket_);
}

TCPClient::~TCPClient() {
    asio::error_code ignored;
    socket_.close(ignored);  // the socket's own destructor would not close at once, but linger
}

void TCPClient::listen() {
    socket_.async_wait(asio::socket_base::wait_read,
                       [weak = weak_from_this()](const asio::error_code& error) {
                           if (const auto self = weak.lock(); self && !error) self->discardInput();
                       });
}

void TCPClient::discardInput() {
    std::array<char, 4096> unread;
    asio::error_code error;
    socket_.read_some(asio::buffer(unread), error);
    if (!error || isFull(error)) {
        listen();
    } else if (error == asio::error::eof) {
        awaitFailure();
    } else {
        gone_(*this);
    }
}

void TCPClient::awaitFailure() {
    socket_.async_wait(asio::socket_base::wait_error,
                       [weak = weak_from_this()](const asio::error_code& error) {
                           const auto self = weak.lock();
                           if (!self || error) return;
                           if (hasFailed(self->socket_.native_handle())) self->gone_(*self);
                       });
}

void TCPClient::send() {
    std::array<std::string_view, sentencesAWrite> pieces;
    while (const auto count = reader_.upcoming(tape_, pieces)) {
        asio::error_code error;
        reader_.advance(tape_, write(socket_, std::span(pieces).first(count), error));
        if (isFull(error)) return awaitRoom();
        if (isPassing(error)) return;
        if (error) return gone_(*this);
    }
}

void TCPClient::awaitRoom() {
    if (std::exchange(awaitsRoom_, true)) return;
    socket_.async_wait(asio::socket_base::wait_write,
                       [weak = weak_from_this()](const asio::error_code& error) {
                           const auto self = weak.lock();
                           if (!self || error) return;
                           self->awaitsRoom_ = false;
                           self->send();
                       });
}

bool TCPClient::isSettled() {
    finishSentence();
    const int socket = socket_.native_handle();
    const bool hasArrived = reader_.remainder().empty() && isAllAcknowledged(socket);
    return hasArrived || hasFailed(socket);
}

void TCPClient::finishSentence() {
    const auto rest = reader_.remainder();
    asio::error_code ignored;
    if (!rest.empty()) reader_.advance(tape_, write(socket_, {&rest, 1}, ignored));
}

void TCPClient::leave() {
    asio::error_code ignored;
    deafen(socket_.native_handle());
    socket_.shutdown(asio::socket_base::shutdown_send, ignored);
    socket_.close(ignored);
}

}  // namespace tidewright::network
