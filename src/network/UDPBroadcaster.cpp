#include "network/UDPBroadcaster.h"

#include <asio/buffer.hpp>
#include <asio/io_context.hpp>
#include <asio/ip/udp.hpp>
#include <utility>

#include "platform/WorkQueue.h"

namespace tidewright::network {

namespace {

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
    platform::WorkQueue queue{"nmea.udp.broadcaster"};
    asio::ip::udp::socket socket{queue.context()};
    asio::ip::udp::endpoint destination;

    // Everything below runs on the queue, and no error is anybody's business.

    void open(const std::string& broadcast, std::uint16_t port) {
        close();
        asio::error_code error;
        socket.open(asio::ip::udp::v4(), error);
        if (error) return;
        socket.set_option(asio::socket_base::broadcast(true), error);
        socket.set_option(asio::socket_base::reuse_address(true), error);
        socket.non_blocking(true, error);
        destination = {addressOrEveryone(broadcast), port};
    }

    void send(const std::string& sentence) {
        asio::error_code ignored;
        if (socket.is_open()) socket.send_to(asio::buffer(sentence), destination, 0, ignored);
    }

    void close() {
        asio::error_code ignored;
        socket.close(ignored);
    }
};

UDPBroadcaster::UDPBroadcaster() : core_(std::make_unique<Core>()) {}

UDPBroadcaster::~UDPBroadcaster() {
    stop();
}

void UDPBroadcaster::start(const std::string& broadcast, std::uint16_t port) {
    core_->queue.runAndWait([&] { core_->open(broadcast, port); });
}

void UDPBroadcaster::send(SharedBytes sentence) {
    core_->queue.post(
        [core = core_.get(), sentence = std::move(sentence)] { core->send(*sentence); });
}

void UDPBroadcaster::stop() {
    core_->queue.runAndWait([this] { core_->close(); });
}

}  // namespace tidewright::network
