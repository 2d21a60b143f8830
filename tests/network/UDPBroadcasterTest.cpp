#include "network/UDPBroadcaster.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>

namespace tidewright::network {
namespace {

SharedBytes bytes(std::string text) {
    return std::make_shared<const std::string>(std::move(text));
}

/// A datagram socket on this machine that waits at most ten seconds.
class Receiver {
public:
    explicit Receiver(const char* ip = "127.0.0.1") {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        inet_pton(AF_INET, ip, &address.sin_addr);
        socklen_t size = sizeof address;
        EXPECT_EQ(bind(socket_, reinterpret_cast<const sockaddr*>(&address), size), 0);
        getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &size);
        port_ = ntohs(address.sin_port);
    }

    Receiver(const Receiver&) = delete;

    ~Receiver() { close(socket_); }

    std::uint16_t port() const { return port_; }

    std::string next() {
        if (!hasOne(10'000)) return "nothing came";
        std::array<char, 65536> datagram{};
        const auto size = recv(socket_, datagram.data(), datagram.size(), 0);
        return {datagram.data(), static_cast<std::size_t>(size)};
    }

    bool isEmpty() const { return !hasOne(0); }

private:
    bool hasOne(int milliseconds) const {
        pollfd wanted{.fd = socket_, .events = POLLIN, .revents = 0};
        return poll(&wanted, 1, milliseconds) == 1;
    }

    int socket_ = socket(AF_INET, SOCK_DGRAM, 0);
    std::uint16_t port_ = 0;
};

TEST(UDPBroadcasterTest, sendsEverySentenceAsOneDatagramInOrder) {
    Receiver receiver;
    UDPBroadcaster broadcaster;
    broadcaster.start("127.0.0.1", receiver.port());
    broadcaster.send(bytes("$one\r\n"));
    broadcaster.send(bytes("$two\r\n$three\r\n"));
    EXPECT_EQ(receiver.next(), "$one\r\n");
    EXPECT_EQ(receiver.next(), "$two\r\n$three\r\n");
}

TEST(UDPBroadcasterTest, doesNotSplitABatch) {
    Receiver receiver;
    UDPBroadcaster broadcaster;
    broadcaster.start("127.0.0.1", receiver.port());
    const std::string batch(20'000, 'x');
    broadcaster.send(bytes(batch));
    EXPECT_EQ(receiver.next(), batch);
}

TEST(UDPBroadcasterTest, sendsToEveryoneForAnAddressItCannotRead) {
    EXPECT_EQ(UDPBroadcaster::destination(""), "255.255.255.255");
    EXPECT_EQ(UDPBroadcaster::destination("somewhere"), "255.255.255.255");
    EXPECT_EQ(UDPBroadcaster::destination("192.168.1"), "255.255.255.255");
    EXPECT_EQ(UDPBroadcaster::destination("::1"), "255.255.255.255");
}

TEST(UDPBroadcasterTest, sendsToTheBroadcastAddressItIsGiven) {
    EXPECT_EQ(UDPBroadcaster::destination("192.168.1.255"), "192.168.1.255");
}

#ifdef __linux__  // elsewhere the loopback network has no broadcast address
TEST(UDPBroadcasterTest, mayBroadcast) {
    Receiver receiver("127.255.255.255");
    UDPBroadcaster broadcaster;
    broadcaster.start("127.255.255.255", receiver.port());
    broadcaster.send(bytes("$all\r\n"));
    EXPECT_EQ(receiver.next(), "$all\r\n");
}
#endif

TEST(UDPBroadcasterTest, sendsNothingBeforeItIsStarted) {
    UDPBroadcaster broadcaster;
    broadcaster.send(bytes("$early\r\n"));
    Receiver receiver;
    broadcaster.start("127.0.0.1", receiver.port());
    broadcaster.send(bytes("$timely\r\n"));
    EXPECT_EQ(receiver.next(), "$timely\r\n");
}

TEST(UDPBroadcasterTest, sendsWhatItWasGivenBeforeItStops) {
    Receiver receiver;
    UDPBroadcaster broadcaster;
    broadcaster.start("127.0.0.1", receiver.port());
    broadcaster.send(bytes("$last\r\n"));
    broadcaster.stop();
    EXPECT_EQ(receiver.next(), "$last\r\n");
}

TEST(UDPBroadcasterTest, sendsNothingOnceStopped) {
    Receiver receiver;
    UDPBroadcaster broadcaster;
    broadcaster.start("127.0.0.1", receiver.port());
    broadcaster.stop();
    broadcaster.send(bytes("$late\r\n"));
    broadcaster.stop();  // has the queue finish with the sentence
    EXPECT_TRUE(receiver.isEmpty());
}

TEST(UDPBroadcasterTest, mayBeStoppedAtAnyTime) {
    UDPBroadcaster broadcaster;
    broadcaster.stop();
    broadcaster.start("127.0.0.1", 1);
    broadcaster.stop();
    broadcaster.stop();
}

TEST(UDPBroadcasterTest, turnsToANewDestinationWhenStartedAgain) {
    Receiver first;
    Receiver second;
    UDPBroadcaster broadcaster;
    broadcaster.start("127.0.0.1", first.port());
    broadcaster.start("127.0.0.1", second.port());
    broadcaster.send(bytes("$new\r\n"));
    EXPECT_EQ(second.next(), "$new\r\n");
    EXPECT_TRUE(first.isEmpty());
}

TEST(UDPBroadcasterTest, losesWhatCannotBeSentAndGoesOn) {
    Receiver receiver;
    UDPBroadcaster broadcaster;
    broadcaster.start("127.0.0.1", receiver.port());
    broadcaster.send(bytes(std::string(70'000, 'x')));
    broadcaster.send(bytes("$next\r\n"));
    EXPECT_EQ(receiver.next(), "$next\r\n");
}

TEST(UDPBroadcasterTest, keepsSendingWhereNobodyListens) {
    UDPBroadcaster broadcaster;
    auto receiver = std::make_unique<Receiver>();
    broadcaster.start("127.0.0.1", receiver->port());
    receiver.reset();
    for (int i = 0; i < 3; ++i) broadcaster.send(bytes("$anyone\r\n"));
    broadcaster.stop();
}

}  // namespace
}  // namespace tidewright::network
