#include "network/TCPServer.h"

#include <asio/io_context.hpp>
#include <asio/ip/tcp.hpp>
#include <asio/system_error.hpp>
#include <atomic>
#include <utility>

#include "network/ClientReports.h"
#include "network/SentenceInbox.h"
#include "network/StreamClients.h"
#include "network/TCPListener.h"
#include "platform/Lifetime.h"
#include "platform/WorkQueue.h"

namespace tidewright::network {

struct TCPServer::Core {
    Core(const TCPServer& itsOwner, platform::MainLoop& itsMainLoop)
        : owner(itsOwner), mainLoop(itsMainLoop) {}

    ~Core() { close(); }

    /// Closes everything, and returns when that is done.
    void close() {
        queue.startAndWait([this](platform::WorkQueue::Task done) {
            listener.reset();
            clients.closeAll();
            clients.whenClosed(std::move(done));
        });
    }

    // From here on, everything runs on the queue.

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
            [this](asio::ip::tcp::socket socket) {
                if (clients.add(std::move(socket), limit)) ++acceptedClients;
            },
            [this, itsRun = run.load()](const asio::error_code& error) {
                reportFailure(itsRun, error.message());
            });
        if (const auto error = listener->open()) return error;
        listener->listen(port);
        return {};
    }

    void dropAllClients() {
        clients.closeAll();
        reports.reportChange();
    }

    void drop(std::uint64_t number) {
        if (clients.close(number)) reports.reportChange();
    }

    void reportFailure(std::uint64_t itsRun, std::string description) {
        mainLoop.post(lifetime.guard([this, itsRun, description = std::move(description)] {
            if (itsRun == run && owner.onFailed) owner.onFailed(description);
        }));
    }

    void reportTraffic() {
        sentencesMissedByClients = clients.missedSentences();
        mainLoop.post(lifetime.guard([this, traffic = clients.traffic()] {
            if (owner.onTraffic) owner.onTraffic(traffic);
        }));
    }

    std::vector<ConnectedClient> listClients() {
        sentencesMissedByClients = clients.missedSentences();
        return clients.list();
    }

    const TCPServer& owner;
    platform::MainLoop& mainLoop;
    platform::Lifetime lifetime;
    std::atomic<std::uint64_t> run = 0;  // how often stop() was called; a failure is of one run
    std::atomic<std::uint64_t> acceptedClients = 0;
    std::atomic<std::int64_t> limit = 0;  // of clients; <= 0: none
    std::atomic<std::uint64_t> sentencesMissedByClients = 0;
    ClientReports reports{mainLoop, queue, [this] { return listClients(); },
                          [this](const std::vector<ConnectedClient>& list) {
                              if (owner.onClientsChanged) owner.onClientsChanged(list);
                          }};
    StreamClients clients{queue, [this] { reports.reportChange(); }};
    SentenceInbox inbox{queue,
                        [this](SharedBytes sentence) { clients.broadcast(std::move(sentence)); }};
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

std::optional<std::uint16_t> TCPServer::startOnFreePort() {
    stop();
    std::optional<std::uint16_t> port;
    core_->queue.runAndWait([&] {
        if (!core_->tryToListen(0)) port = core_->listener->port();
    });
    return port;
}

void TCPServer::stop() {
    ++core_->run;
    core_->close();
    core_->queue.runAndWait([this] { core_->reports.report(); });
}

void TCPServer::finish() {
    core_->queue.startAndWait([this](platform::WorkQueue::Task done) {
        core_->listener.reset();
        core_->clients.whenAllSent(std::move(done));
    });
    stop();
}

void TCPServer::broadcast(SharedBytes sentence) {
    core_->inbox.post(std::move(sentence));
}

void TCPServer::limitClients(std::int64_t limit) {
    core_->limit = limit;
}

void TCPServer::dropAllClients() {
    core_->queue.post([core = core_.get()] { core->dropAllClients(); });
}

void TCPServer::drop(std::uint64_t number) {
    core_->queue.post([core = core_.get(), number] { core->drop(number); });
}

void TCPServer::askForTraffic() {
    core_->queue.post([core = core_.get()] { core->reportTraffic(); });
}

std::uint64_t TCPServer::acceptedClients() const {
    return core_->acceptedClients;
}

DroppedSentences TCPServer::droppedSentences() const {
    return {.thread = core_->inbox.droppedSentences(), .client = core_->sentencesMissedByClients};
}

}  // namespace tidewright::network
