#include "network/TCPServer.h"

#include <asio/io_context.hpp>
#include <asio/ip/tcp.hpp>
#include <asio/system_error.hpp>
#include <atomic>
#include <utility>

#include "network/Audience.h"
#include "network/TCPListener.h"
#include "platform/Lifetime.h"
#include "platform/WorkQueue.h"

namespace tidewright::network {

struct TCPServer::Core {
    Core(const TCPServer& itsOwner, platform::MainLoop& itsMainLoop)
        : owner(itsOwner), mainLoop(itsMainLoop) {}

    ~Core() {
        queue.runAndWait([this] { close(); });
    }

    /// Asio makes what it needs for itself with the first socket, and throws where it cannot.
    asio::error_code tryToListen(std::uint16_t port) {
        try {
            return listen(port);
        } catch (const asio::system_error& error) {
            return error.code();
        }
    }

    asio::error_code listen(std::uint16_t port) {
        listener = std::make_shared<TCPListener>(
            queue.context(),
            [this](asio::ip::tcp::socket socket) { audience.admit(std::move(socket)); },
            [this, itsRun = run.load()](const asio::error_code& error) {
                reportFailure(itsRun, error.message());
            });
        if (const auto error = listener->open()) return error;
        listener->listen(port);
        return {};
    }

    void close() {
        listener.reset();
        audience.dismiss();
    }

    void reportClients(std::vector<std::string> addresses) {
        mainLoop.post(lifetime.guard([this, addresses = std::move(addresses)] {
            if (owner.onClientsChanged) owner.onClientsChanged(addresses);
        }));
    }

    void reportFailure(std::uint64_t itsRun, std::string description) {
        mainLoop.post(lifetime.guard([this, itsRun, description = std::move(description)] {
            if (itsRun == run && owner.onFailed) owner.onFailed(description);
        }));
    }

    const TCPServer& owner;
    platform::MainLoop& mainLoop;
    platform::Lifetime lifetime;
    std::atomic<std::uint64_t> run =
        0;  // counts the calls of stop(): which of them a failure is of
    Audience audience{
        [this](Audience::Task task) { queue.post(std::move(task)); },
        [this](std::vector<std::string> addresses) { reportClients(std::move(addresses)); }};
    std::shared_ptr<TCPListener> listener;
    platform::WorkQueue queue{"nmea.tcp.server"};  // last, so that it ends before what it works on
};

TCPServer::TCPServer(platform::MainLoop& mainLoop)
    : core_(std::make_unique<Core>(*this, mainLoop)) {}

TCPServer::~TCPServer() = default;

std::optional<StartFailure> TCPServer::start(std::uint16_t port) {
    stop();
    if (port == 0) {
        return StartFailure{.domain = "nmea.tcp", .code = 1, .description = "Port TCP invalide"};
    }
    asio::error_code error;
    core_->queue.runAndWait([&] { error = core_->tryToListen(port); });
    if (!error) return std::nullopt;
    return StartFailure{.domain = "system", .code = error.value(), .description = error.message()};
}

void TCPServer::stop() {
    ++core_->run;
    core_->queue.runAndWait([this] { core_->close(); });
}

void TCPServer::broadcast(SharedBytes sentence) {
    core_->queue.post([core = core_.get(), sentence = std::move(sentence)]() mutable {
        core->audience.tell(std::move(sentence));
    });
}

void TCPServer::dropAllClients() {
    core_->queue.post([core = core_.get()] { core->audience.dismiss(); });
}

}  // namespace tidewright::network
