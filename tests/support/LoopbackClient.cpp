#include "support/LoopbackClient.h"

#include <gtest/gtest.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

namespace tidewright::network {

namespace {

constexpr int patienceMilliseconds = 10'000;

bool isReady(int socket, short event, int milliseconds) {
    pollfd wanted{.fd = socket, .events = event, .revents = 0};
    return poll(&wanted, 1, milliseconds) == 1;
}

int connectOverIPv4(int socket, std::uint16_t port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address);
}

int connectOverIPv6(int socket, std::uint16_t port) {
    sockaddr_in6 address{};
    address.sin6_family = AF_INET6;
    address.sin6_port = htons(port);
    address.sin6_addr = in6addr_loopback;
    return connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address);
}

}  // namespace

LoopbackClient::LoopbackClient(std::uint16_t port, Options options)
    : socket_(socket(options.overIPv6 ? AF_INET6 : AF_INET, SOCK_STREAM, 0)) {
    if (const int bytes = options.receiveBufferBytes; bytes > 0) {
        setsockopt(socket_, SOL_SOCKET, SO_RCVBUF, &bytes, sizeof bytes);
    }
    const timeval patience{.tv_sec = patienceMilliseconds / 1000, .tv_usec = 0};
    setsockopt(socket_, SOL_SOCKET, SO_SNDTIMEO, &patience, sizeof patience);
    const auto connectThere = options.overIPv6 ? connectOverIPv6 : connectOverIPv4;
    EXPECT_EQ(connectThere(socket_, port), 0) << std::strerror(errno);
}

LoopbackClient::LoopbackClient(LoopbackClient&& other) noexcept
    : socket_(std::exchange(other.socket_, -1)),
      ended_(other.ended_),
      endedCleanly_(other.endedCleanly_) {}

LoopbackClient::~LoopbackClient() {
    if (socket_ >= 0) close(socket_);
}

std::string LoopbackClient::read(std::size_t bytes) {
    std::string text;
    while (text.size() < bytes && !ended_) text += readSome(bytes - text.size());
    return text;
}

std::string LoopbackClient::readThrough(std::string_view end) {
    std::string text;
    while (text.find(end) == std::string::npos && !ended_) text += readSome(64 * 1024);
    return text;
}

std::string LoopbackClient::readToEnd() {
    std::string text;
    while (!ended_) text += readSome(64 * 1024);
    return text;
}

bool LoopbackClient::hasNothingToRead() const {
    return !isReady(socket_, POLLIN, 0);
}

void LoopbackClient::write(std::string_view bytes) {
    while (!bytes.empty()) {
        const auto sent = send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        ASSERT_GT(sent, 0) << std::strerror(errno);
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
}

void LoopbackClient::closeSending() {
    shutdown(socket_, SHUT_WR);
}

void LoopbackClient::reset() {
    const linger atOnce{.l_onoff = 1, .l_linger = 0};
    setsockopt(socket_, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
    close(std::exchange(socket_, -1));
    ended_ = true;
}

std::string LoopbackClient::readSome(std::size_t most) {
    const bool arrived = isReady(socket_, POLLIN, patienceMilliseconds);
    EXPECT_TRUE(arrived) << "nothing came to read";
    std::string bytes(std::min<std::size_t>(most, 64 * 1024), '\0');
    const auto count = arrived ? recv(socket_, bytes.data(), bytes.size(), 0) : -1;
    ended_ = count <= 0;
    endedCleanly_ = count == 0;
    bytes.resize(ended_ ? 0 : static_cast<std::size_t>(count));
    return bytes;
}

}  // namespace tidewright::network
