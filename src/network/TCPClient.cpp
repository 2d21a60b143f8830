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

/// A failure of the host rather than of the connection: the next sentence tries again.
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

TCPClient::TCPClient(asio::ip::tcp::socket socket, ConnectedClient identity,
                     const SentenceTape& tape, Failed failed)
    : socket_(std::move(socket)),
      identity_(std::move(identity)),
      tape_(tape),
      reader_(tape.end()),
      failed_(std::move(failed)) {
    prepare(socket_);
}

TCPClient::~TCPClient() {
    asio::error_code ignored;
    socket_.close(ignored);  // the socket's own destructor would not close at once, but linger
}

ClientTraffic TCPClient::traffic() const {
    return {.number = identity_.number,
            .sentBytes = reader_.sentBytes(),
            .missedSentences = reader_.missedSentences(tape_)};
}

void TCPClient::start() {
    await(asio::socket_base::wait_read, &TCPClient::discardInput);
}

void TCPClient::await(asio::socket_base::wait_type what, void (TCPClient::*handle)()) {
    socket_.async_wait(what, [weak = weak_from_this(), handle](const asio::error_code& error) {
        const auto self = weak.lock();
        if (self && !error && !self->isStopped_) ((*self).*handle)();
    });
}

void TCPClient::discardInput() {
    std::array<char, 4096> unread;
    asio::error_code error;
    socket_.read_some(asio::buffer(unread), error);
    if (!error || isFull(error)) {
        await(asio::socket_base::wait_read, &TCPClient::discardInput);
    } else if (error == asio::error::eof) {
        await(asio::socket_base::wait_error, &TCPClient::lookForFailure);
    } else {
        failed_(*this);
    }
}

void TCPClient::lookForFailure() {
    if (hasFailed(socket_.native_handle())) failed_(*this);
}

void TCPClient::send() {
    std::array<std::string_view, sentencesAWrite> pieces;
    while (const auto count = reader_.upcoming(tape_, pieces)) {
        asio::error_code error;
        reader_.advance(tape_, write(socket_, std::span(pieces).first(count), error));
        if (isFull(error)) return awaitRoom();
        if (isPassing(error)) return;
        if (error) return failed_(*this);
    }
}

void TCPClient::awaitRoom() {
    if (std::exchange(awaitsRoom_, true)) return;
    await(asio::socket_base::wait_write, &TCPClient::sendOn);
}

void TCPClient::sendOn() {
    awaitsRoom_ = false;
    send();
}

bool TCPClient::hasEverything() {
    const int socket = socket_.native_handle();
    const bool isAcknowledged = reader_.isAtEndOf(tape_) && isAllAcknowledged(socket);
    return isAcknowledged || hasFailed(socket);
}

bool TCPClient::isReadyToClose() {
    finishSentence();
    const int socket = socket_.native_handle();
    const bool isAcknowledged = reader_.remainder().empty() && isAllAcknowledged(socket);
    return isAcknowledged || hasFailed(socket);
}

void TCPClient::finishSentence() {
    const auto rest = reader_.remainder();
    asio::error_code ignored;
    if (!rest.empty()) reader_.advance(tape_, write(socket_, {&rest, 1}, ignored));
}

void TCPClient::close() {
    asio::error_code ignored;
    ignoreInput(socket_.native_handle());
    socket_.shutdown(asio::socket_base::shutdown_send, ignored);
    socket_.close(ignored);
}

}  // namespace tidewright::network
