#include "LoopbackSocket.h"

#include <netinet/in.h>

#include <chrono>
#include <thread>

#include "platform/Check.h"

namespace tidewright::soak {
namespace {
using namespace std::chrono_literals;
constexpr auto patience = 10s;

int madeSocket(int receiveBufferBytes) {
    const int made = socket(AF_INET, SOCK_STREAM, 0);
    platform::check(made >= 0, "no socket for a client");
    const timeval limit{.tv_sec = patience / 1s, .tv_usec = 0};
    setsockopt(made, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
    setsockopt(made, SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof limit);
    if (receiveBufferBytes > 0) {
        setsockopt(made, SOL_SOCKET, SO_RCVBUF, &receiveBufferBytes, sizeof receiveBufferBytes);
    }
    return made;
}

bool isConnected(int client, std::uint16_t port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return connect(client, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

}  // namespace

LoopbackSocket::LoopbackSocket(std::uint16_t port, int receiveBufferBytes)
    : socket_(madeSocket(receiveBufferBytes)) {
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (!isConnected(socket_, port)) {
        platform::check(std::chrono::steady_clock::now() < deadline, "nobody listens");
        std::this_thread::sleep_for(5ms);
        close(socket_);
        socket_ = madeSocket(receiveBufferBytes);
    }
}

}  // namespace tidewright::soak
