// What it costs to send sentences to every client: the server, against a bare loop of send() of the
// same bytes to the same number of sockets.
//
// The clients are another process, which reads and discards: only this one's processor time counts,
// the caller's and the server's together. Sentences come in bursts, as the gateway's pump makes
// them, with time between two bursts for the server to finish.

#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <ctime>
#include <map>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "network/TCPServer.h"
#include "platform/AsioMainLoop.h"
#include "platform/Check.h"

namespace tidewright::network {
namespace {
using namespace std::chrono_literals;

using platform::check;
using Seconds = std::chrono::duration<double>;

constexpr std::size_t mostClients = 1000;
constexpr int burstsARun = 40;
constexpr int sentencesABurst = 27;
constexpr auto pumpPeriod = 50ms;

const std::string sentence =
    "$GPRMC,120000.00,A,4730.0000,N,00300.0000,W,6.2,045.0,010126,,,A*4C\r\n";

/// Processor time a sentence and client, by number of clients.
struct Costs {
    Seconds server{};
    Seconds bareLoop{};
};
std::map<std::size_t, Costs> costs;

Seconds processorTime() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

sockaddr_in loopback(std::uint16_t port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

/// A socket that listens on a port that the system picks.
class PlainListener {
public:
    PlainListener() {
        auto address = loopback(0);
        socklen_t size = sizeof address;
        check(bind(socket_, reinterpret_cast<const sockaddr*>(&address), size) == 0, "no port");
        check(listen(socket_, mostClients) == 0, "cannot listen");
        getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &size);
        port_ = ntohs(address.sin_port);
    }

    PlainListener(const PlainListener&) = delete;
    ~PlainListener() { close(socket_); }

    std::uint16_t port() const { return port_; }

    int accept() const {
        const int client = ::accept(socket_, nullptr, nullptr);
        check(client >= 0, "cannot accept");
        const int on = 1;
        setsockopt(client, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
        return client;
    }

private:
    int socket_ = socket(AF_INET, SOCK_STREAM, 0);
    std::uint16_t port_ = 0;
};

/// Many clients in a process of their own that read and discard until destroyed.
class Readers {
public:
    Readers(std::uint16_t port, std::size_t count) : process_(fork()) {
        check(process_ >= 0, "cannot fork");
        if (process_ == 0) readForever(port, count);
    }

    Readers(const Readers&) = delete;

    ~Readers() {
        kill(process_, SIGKILL);
        waitpid(process_, nullptr, 0);
    }

private:
    /// Allocates nothing: a fork of a process with threads may not.
    [[noreturn]] static void readForever(std::uint16_t port, std::size_t count) {
        static std::array<pollfd, mostClients> clients;
        static std::array<char, 256 * 1024> discarded;
        for (std::size_t i = 0; i < count; ++i) clients[i] = {connectTo(port), POLLIN, 0};
        for (;;) {
            poll(clients.data(), static_cast<nfds_t>(count), -1);
            for (std::size_t i = 0; i < count; ++i) {
                if (clients[i].revents == 0) continue;
                if (read(clients[i].fd, discarded.data(), discarded.size()) <= 0) _exit(0);
            }
        }
    }

    static int connectTo(std::uint16_t port) {
        const int client = socket(AF_INET, SOCK_STREAM, 0);
        const auto address = loopback(port);
        if (connect(client, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
            _exit(1);
        }
        return client;
    }

    pid_t process_;
};

/// What one run of bursts costs, a sentence and client. `sendBurst` is called on the pump's grid.
template <typename SendBurst>
Seconds costOfBursts(std::size_t clients, SendBurst sendBurst) {
    const Seconds before = processorTime();
    for (int burst = 0; burst < burstsARun; ++burst) {
        const auto next = std::chrono::steady_clock::now() + pumpPeriod;
        sendBurst();
        std::this_thread::sleep_until(next);
    }
    const auto sentences = static_cast<double>(burstsARun * sentencesABurst);
    return (processorTime() - before) / (sentences * static_cast<double>(clients));
}

void report(benchmark::State& state, Seconds cost) {
    state.SetIterationTime(cost.count());
}

void waitForClients(platform::AsioMainLoop& loop, TCPServer& server, std::size_t count) {
    server.onClientsChanged = [&loop, count](const std::vector<ConnectedClient>& clients) {
        if (clients.size() == count) loop.stop();
    };
    loop.run();
}

void server(benchmark::State& state) {
    const auto clients = static_cast<std::size_t>(state.range(0));
    const auto port = PlainListener().port();
    platform::AsioMainLoop loop;
    TCPServer server(loop);
    check(!server.start(port), "the server cannot start");
    const Readers readers(port, clients);
    waitForClients(loop, server, clients);
    for (auto _ : state) {
        const auto cost = costOfBursts(clients, [&] {
            for (int i = 0; i < sentencesABurst; ++i) {
                server.broadcast(std::make_shared<const std::string>(sentence));
            }
        });
        report(state, costs[clients].server = cost);
    }
}

void bareLoop(benchmark::State& state) {
    const auto clients = static_cast<std::size_t>(state.range(0));
    const PlainListener listener;
    const Readers readers(listener.port(), clients);
    std::vector<int> sockets;
    while (sockets.size() < clients) sockets.push_back(listener.accept());
    for (auto _ : state) {
        const auto cost = costOfBursts(clients, [&] {
            for (int i = 0; i < sentencesABurst; ++i) {
                for (const int client : sockets) {
                    send(client, sentence.data(), sentence.size(), MSG_NOSIGNAL);
                }
            }
        });
        report(state, costs[clients].bareLoop = cost);
    }
    for (const int client : sockets) close(client);
}

void forEachCrowd(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(1)->Arg(100)->Arg(mostClients)->ArgName("clients");
    benchmark->UseManualTime()->Iterations(1)->Unit(benchmark::kNanosecond);
}

BENCHMARK(bareLoop)->Apply(forEachCrowd);
BENCHMARK(server)->Apply(forEachCrowd);

void allowManyDescriptors() {
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    limit.rlim_cur = std::min<rlim_t>(limit.rlim_max, 4 * mostClients);
    setrlimit(RLIMIT_NOFILE, &limit);
}

void printRatios() {
    fmt::print("\nprocessor time a sentence and client\n");
    fmt::print("{:>8} {:>12} {:>12} {:>8}\n", "clients", "server", "bare loop", "ratio");
    for (const auto& [clients, cost] : costs) {
        fmt::print("{:>8} {:>9.0f} ns {:>9.0f} ns {:>8.2f}\n", clients, cost.server.count() * 1e9,
                   cost.bareLoop.count() * 1e9, cost.server / cost.bareLoop);
    }
}

}  // namespace
}  // namespace tidewright::network

int main(int count, char** arguments) {
    benchmark::Initialize(&count, arguments);
    if (benchmark::ReportUnrecognizedArguments(count, arguments)) return 1;
    tidewright::network::allowManyDescriptors();
    benchmark::RunSpecifiedBenchmarks();
    tidewright::network::printRatios();
}
