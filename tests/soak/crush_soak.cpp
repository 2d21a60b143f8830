// Thousands of TCP clients who come at once, vanish at once, and do not read: what a client who
// reads notices of it, and how long the server takes to list and to close them. Prints figures;
// ends with 1 where that client misses anything or the list is wrong.
//
//     tidewright_crush_soak [--clients 10000] [--leaving 9000] [--silent 4000]

#include <fmt/format.h>
#include <poll.h>
#include <sys/epoll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <csignal>
#include <cstring>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "LoopbackSocket.h"
#include "network/TCPServer.h"
#include "platform/AsioMainLoop.h"
#include "platform/Check.h"
#include "support/FreePort.h"

namespace tidewright::soak {
namespace {
using namespace std::chrono_literals;

using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr auto sentencePeriod = 200ms;  // that of headings, the most frequent by default

std::int64_t steadyNanoseconds() {
    return std::chrono::steady_clock::now().time_since_epoch().count();
}

struct Options {
    std::map<std::string, std::size_t, std::less<>> values{
        {"--clients", 10'000}, {"--leaving", 9000}, {"--silent", 4000}};

    std::size_t operator[](std::string_view name) const { return values.find(name)->second; }
};

Options optionsFrom(int count, char** arguments) {
    Options options;
    for (int i = 1; i < count; i += 2) {
        const auto option = options.values.find(std::string_view(arguments[i]));
        const std::string_view value = i + 1 < count ? arguments[i + 1] : "";
        platform::check(option != options.values.end(), "no such option");
        const auto [end, error] =
            std::from_chars(value.data(), value.data() + value.size(), option->second);
        platform::check(error == std::errc{} && end == value.data() + value.size(),
                        "an option needs a whole number");
    }
    platform::check(options["--leaving"] <= options["--clients"], "not so many can leave");
    return options;
}

void allowManyDescriptors() {
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    limit.rlim_cur = limit.rlim_max;
    setrlimit(RLIMIT_NOFILE, &limit);
}

/// A process of its own that does `work`; killed at the end.
class Helper {
public:
    explicit Helper(const std::function<int()>& work) : process_(fork()) {
        platform::check(process_ >= 0, "cannot fork");
        if (process_ > 0) return;
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        const int status = work();
        std::fflush(stdout);
        _exit(status);
    }

    Helper(const Helper&) = delete;
    ~Helper() { end(); }

    /// All its connections end with it.
    void end() {
        if (process_ > 0) kill(process_, SIGKILL);
        wait();
    }

    /// Its exit status.
    int wait() {
        int status = 0;
        if (process_ > 0) waitpid(std::exchange(process_, -1), &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
    }

private:
    pid_t process_;
};

/// Connects so many clients and reads what they are sent, until the process is ended.
int readForever(std::uint16_t port, std::size_t count) {
    std::vector<LoopbackSocket> clients;
    clients.reserve(count);
    const int poll = epoll_create1(0);
    for (std::size_t i = 0; i < count; ++i) {
        epoll_event readable{.events = EPOLLIN,
                             .data = {.fd = clients.emplace_back(port).native()}};
        epoll_ctl(poll, EPOLL_CTL_ADD, clients.back().native(), &readable);
    }
    std::array<epoll_event, 256> ready;
    std::array<char, 64 * 1024> discarded;
    for (;;) {
        const int found = epoll_wait(poll, ready.data(), ready.size(), -1);
        for (int i = 0; i < found; ++i)
            if (recv(ready[static_cast<std::size_t>(i)].data.fd, discarded.data(), discarded.size(),
                     0) <= 0)
                return 0;
    }
}

int neverRead(std::uint16_t port, std::size_t count) {
    std::vector<LoopbackSocket> clients;
    clients.reserve(count);
    while (clients.size() < count) clients.emplace_back(port, 4096);
    pause();
    return 0;
}

/// Reads numbered and stamped sentences to the end of the stream; 0 if every one came, in order.
int watchStream(std::uint16_t port) {
    const LoopbackSocket client(port);
    std::string text;
    std::array<char, 64 * 1024> piece;
    std::int64_t expected = -1;
    std::int64_t longest = 0;
    for (ssize_t size = 0; (size = recv(client.native(), piece.data(), piece.size(), 0)) > 0;) {
        const std::int64_t now = steadyNanoseconds();
        text.append(piece.data(), static_cast<std::size_t>(size));
        for (auto end = text.find('\n'); end != std::string::npos; end = text.find('\n')) {
            std::int64_t number = 0;
            std::int64_t stamp = 0;
            const char* last = text.data() + end;
            const auto [comma, error] = std::from_chars(text.data(), last, number);
            std::from_chars(comma + 1, last, stamp);
            if (expected >= 0 && number != expected) {
                fmt::print("  FAULT: sentence {} instead of {}\n", number, expected);
                return 1;
            }
            expected = number + 1;
            longest = std::max(longest, now - stamp);
            text.erase(0, end + 1);
        }
    }
    fmt::print("  the longest that a sentence took to the client who reads: {:.0f} ms\n",
               Milliseconds(std::chrono::nanoseconds(longest)).count());
    return 0;
}

/// The server, with a sentence every 200 ms for everyone. Helpers are made before it, lest they
/// inherit its sockets.
class Stream {
public:
    explicit Stream(std::uint16_t port) {
        server_.onClientsChanged = [this](const auto& clients) { listed_ = clients.size(); };
        server_.onFailed = [](const std::string& why) { platform::fail(why); };
        platform::check(!server_.start(port), "the server cannot start");
    }

    /// How long it took until so many clients were listed.
    Milliseconds waitForListed(std::size_t count) {
        const auto began = loop_.now();
        const auto watch = loop_.every(1ms, [&] {
            platform::check(loop_.now() - began < 60s, "the list never came right");
            if (listed_ == count) loop_.stop();
        });
        loop_.run();
        return loop_.now() - began;
    }

    void runFor(std::chrono::seconds span) {
        loop_.after(span, [this] { loop_.stop(); });
        loop_.run();
    }

    void broadcast(std::string text) {
        server_.broadcast(std::make_shared<const std::string>(std::move(text)));
    }

    Milliseconds stop() {
        sentences_.reset();
        const auto began = loop_.now();
        server_.stop();
        return loop_.now() - began;
    }

private:
    platform::AsioMainLoop loop_;
    network::TCPServer server_{loop_};
    std::size_t listed_ = 0;
    std::int64_t number_ = 0;
    platform::Subscription sentences_ = loop_.every(sentencePeriod, [this] {
        broadcast(fmt::format("{},{}\n", number_++, steadyNanoseconds()));
    });
};

int comeAndVanish(std::size_t clients, std::size_t leaving) {
    const std::uint16_t port = network::freePort();
    const std::size_t staying = clients - leaving;
    Helper healthy([&] { return watchStream(port); });
    const Helper those([&] { return readForever(port, staying); });
    Helper others([&] { return readForever(port, leaving); });
    Stream stream(port);
    fmt::print("  {} clients connected and listed in {:.0f} ms\n", clients,
               stream.waitForListed(1 + clients).count());
    stream.runFor(2s);
    others.end();
    fmt::print("  {} of them vanished at once: the list was right {:.0f} ms later\n", leaving,
               stream.waitForListed(1 + staying).count());
    stream.runFor(1s);
    stream.stop();
    return healthy.wait();
}

void stopWithSilentClients(std::size_t count) {
    const std::uint16_t port = network::freePort();
    const Helper silent([&] { return neverRead(port, count); });
    Stream stream(port);
    stream.waitForListed(count);
    for (int i = 0; i < 64; ++i) stream.broadcast(std::string(1023, '*') + "\n");
    stream.runFor(2s);
    fmt::print("  stopped with {} clients who do not read in {:.0f} ms\n", count,
               stream.stop().count());
}

}  // namespace
}  // namespace tidewright::soak

int main(int count, char** arguments) {
    using namespace tidewright::soak;
    const Options options = optionsFrom(count, arguments);
    allowManyDescriptors();
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    const int status = comeAndVanish(options["--clients"], options["--leaving"]);
    stopWithSilentClients(options["--silent"]);
    return status;
}
