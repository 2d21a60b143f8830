#include "Churn.h"

#include <array>
#include <string>
#include <thread>
#include <vector>

#include "LoopbackSocket.h"

namespace tidewright::soak {
namespace {
using namespace std::chrono_literals;

void readOnce(const LoopbackSocket& client) {
    std::array<char, 4096> buffer;
    static_cast<void>(recv(client.native(), buffer.data(), buffer.size(), 0));
}

void leaveCleanly(std::uint16_t port) {
    const LoopbackSocket client(port);
    readOnce(client);
}

void reset(std::uint16_t port) {
    const LoopbackSocket client(port);
    const linger atOnce{.l_onoff = 1, .l_linger = 0};
    setsockopt(client.native(), SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
}

void closeHalf(std::uint16_t port) {
    const LoopbackSocket client(port);
    shutdown(client.native(), SHUT_WR);
    readOnce(client);
}

void staySilent(std::uint16_t port) {
    const LoopbackSocket client(port);
    std::this_thread::sleep_for(5s);
}

void sendRubbish(std::uint16_t port) {
    const LoopbackSocket client(port);
    const std::string rubbish(1 << 20, '\xA5');
    for (std::size_t sent = 0; sent < rubbish.size();) {
        const auto part =
            send(client.native(), rubbish.data() + sent, rubbish.size() - sent, MSG_NOSIGNAL);
        if (part <= 0) return;
        sent += static_cast<std::size_t>(part);
    }
}

constexpr std::array manners{leaveCleanly, reset, closeHalf, staySilent, sendRubbish};

}  // namespace

int churn(std::uint16_t port, int perSecond, std::chrono::seconds span) {
    std::vector<std::thread> clients;
    const auto begin = std::chrono::steady_clock::now();
    for (int number = 0; number < perSecond * (span / 1s); ++number) {
        std::this_thread::sleep_until(begin + number * 1s / perSecond);
        clients.emplace_back(manners[static_cast<std::size_t>(number) % manners.size()], port);
    }
    for (auto& client : clients) client.join();
    return static_cast<int>(clients.size());
}

}  // namespace tidewright::soak
