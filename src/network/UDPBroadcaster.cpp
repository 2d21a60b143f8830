#include "network/UDPBroadcaster.h"

#include <asio/buffer.hpp>
#include <asio/error.hpp>
#include <asio/io_context.hpp>
#include <asio/ip/multicast.hpp>
#include <asio/ip/udp.hpp>
#include <asio/steady_timer.hpp>
#include <atomic>
#include <chrono>
#include <utility>
#include <vector>

#include "network/DatagramBacklog.h"
#include "network/SentenceInbox.h"
#include "platform/WorkQueue.h"

namespace tidewright::network {

namespace {

constexpr auto patience = std::chrono::milliseconds(200);

constexpr std::size_t largestDatagram = 65'507;  // over IPv4: 65,535 less both headers

bool isFull(const asio::error_code& error) {
    return error == asio::error::would_block || error == asio::error::try_again;
}

asio::ip::address_v4 addressOrEveryone(const std::string& text) {
    asio::error_code error;
    const auto address = asio::ip::make_address_v4(text, error);
    return error ? asio::ip::address_v4::broadcast() : address;
}

}  // namespace

std::string UDPBroadcaster::destination(const std::string& broadcast) {
    return addressOrEveryone(broadcast).to_string();
}

struct UDPBroadcaster::Core {
    ~Core() { close(); }

    /// Closes the socket, and returns when that is done.
    void close() {
        queue.startAndWait([this](platform::WorkQueue::Task done) {
            whenClosed.push_back(std::move(done));
            if (backlog.isEmpty()) return closeSocket();
            deadline.expires_after(patience);
            deadline.async_wait([this](const asio::error_code& error) {
                if (!error && !whenClosed.empty()) closeSocket();
            });
        });
    }

    // From here on, everything runs on the queue. Errors are nowhere reported.

    void open(const std::string& broadcast, std::uint16_t port) {
        asio::error_code error;
        socket.open(asio::ip::udp::v4(), error);
        if (error) return;
        socket.set_option(asio::socket_base::broadcast(true), error);
        socket.set_option(asio::socket_base::reuse_address(true), error);
        socket.set_option(asio::ip::multicast::hops(1), error);  // a group stays on this network
        socket.non_blocking(true, error);
        destination = {addressOrEveryone(broadcast), port};
    }

    void send(SharedBytes sentence) {
        if (!socket.is_open()) return;
        if (sentence->size() > largestDatagram) {
            ++droppedBySocket;
            return;
        }
        droppedBySocket += backlog.add(std::move(sentence));
        if (!awaitsRoom) sendBacklog();
    }

    void sendBacklog() {
        while (!backlog.isEmpty()) {
            asio::error_code error;
            socket.send_to(asio::buffer(backlog.oldest()), destination, 0, error);
            if (isFull(error)) return awaitRoom();
            backlog.removeOldest();
        }
        if (!whenClosed.empty()) closeSocket();
    }

    void awaitRoom() {
        awaitsRoom = true;
        socket.async_wait(asio::socket_base::wait_write, [this](const asio::error_code& error) {
            awaitsRoom = false;
            if (!error) sendBacklog();
        });
    }

    void closeSocket() {
        asio::error_code ignored;
        socket.close(ignored);
        deadline.cancel();
        droppedBySocket += backlog.clear();
        for (const auto& done : std::exchange(whenClosed, {})) done();
    }

    DatagramBacklog backlog{1 << 20};
    std::atomic<std::uint64_t> droppedBySocket = 0;
    std::vector<platform::WorkQueue::Task> whenClosed;
    bool awaitsRoom = false;
    asio::ip::udp::endpoint destination;
    SentenceInbox inbox{queue, [this](SharedBytes sentence) { send(std::move(sentence)); }};
    platform::WorkQueue queue{"nmea.udp.broadcaster"};
    asio::ip::udp::socket socket{queue.context()};
    asio::steady_timer deadline{queue.context()};
};

UDPBroadcaster::UDPBroadcaster() : core_(std::make_unique<Core>()) {}

UDPBroadcaster::~UDPBroadcaster() = default;

void UDPBroadcaster::start(const std::string& broadcast, std::uint16_t port) {
    stop();
    core_->queue.runAndWait([&] { core_->open(broadcast, port); });
}

void UDPBroadcaster::send(SharedBytes sentence) {
    core_->inbox.post(std::move(sentence));
}

void UDPBroadcaster::stop() {
    core_->close();
}

DroppedSentences UDPBroadcaster::droppedSentences() const {
    return {.thread = core_->inbox.droppedSentences(), .socket = core_->droppedBySocket};
}

}  // namespace tidewright::network
