#include "network/UDPBroadcaster.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <fmt/format.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <poll.h>
#include <sched.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdlib>

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

#ifdef __linux__
    /// Has the system keep whatever comes until it is read. For the administrator alone.
    void keepEverything() const {
        const int bytes = 64 << 20;
        ASSERT_EQ(setsockopt(socket_, SOL_SOCKET, SO_RCVBUFFORCE, &bytes, sizeof bytes), 0);
    }
#endif

    ~Receiver() {
        close(socket_);
    }

    std::uint16_t port() const {
        return port_;
    }

    std::string next() {
        if (!hasOne(10'000)) return "nothing came";
        std::array<char, 65536> datagram{};
        const auto size = recv(socket_, datagram.data(), datagram.size(), 0);
        return {datagram.data(), static_cast<std::size_t>(size)};
    }

    bool isEmpty() const {
        return !hasOne(0);
    }

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

TEST(UDPBroadcasterTest, namesEveryoneForAnAddressItCannotRead) {
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

TEST(UDPBroadcasterTest, dropsAndCountsWhatItsThreadIsTooSlowFor) {
    Receiver receiver;
    UDPBroadcaster broadcaster;
    broadcaster.start("127.0.0.1", receiver.port());
    const auto big = bytes(std::string(60'000, 'x'));
    for (int i = 0; i < 20'000; ++i) broadcaster.send(big);
    EXPECT_GT(broadcaster.droppedSentences().thread, 0);
    EXPECT_EQ(broadcaster.droppedSentences().socket, 0);
}

TEST(UDPBroadcasterTest, dropsAndCountsWhatNoDatagramCanHold) {
    Receiver receiver;
    UDPBroadcaster broadcaster;
    broadcaster.start("127.0.0.1", receiver.port());
    broadcaster.send(bytes(std::string(65'508, 'x')));
    const std::string largest(65'507, 'y');
    broadcaster.send(bytes(largest));
    EXPECT_EQ(receiver.next(), largest);
    EXPECT_EQ(broadcaster.droppedSentences().socket, 1);
}

#ifdef __linux__

/// Puts this process on a loopback network of its own that carries `rate`, as tc writes it.
bool slowTheNetworkTo(const std::string& rate) {
    return unshare(CLONE_NEWNET) == 0 &&
           std::system(
               ("ip link set lo up && tc qdisc add dev lo root tbf burst 4k limit 10M rate " + rate)
                   .c_str()) == 0;
}

/// The tests in a slow network, each in a process of its own that ends with 0 if it holds.
struct UDPBroadcasterDeathTest : testing::Test {
    void SetUp() override {
        GTEST_FLAG_SET(death_test_style, "threadsafe");
        if (std::system("unshare --net tc qdisc show > /dev/null 2>&1") != 0)
            GTEST_SKIP() << "this machine lets us make no network of our own";
    }
};

/// This process's one datagram socket.
int datagramSocket() {
    for (int descriptor = 0; descriptor < 1024; ++descriptor) {
        int type = 0;
        socklen_t size = sizeof type;
        if (getsockopt(descriptor, SOL_SOCKET, SO_TYPE, &type, &size) == 0 && type == SOCK_DGRAM)
            return descriptor;
    }
    return -1;
}

bool isOn(int option) {
    int value = 0;
    socklen_t size = sizeof value;
    return getsockopt(datagramSocket(), SOL_SOCKET, option, &value, &size) == 0 && value != 0;
}

TEST(UDPBroadcasterTest, mayBroadcastShareItsPortAndNeverBlocks) {
    UDPBroadcaster broadcaster;
    broadcaster.start("127.0.0.1", 9);
    ASSERT_GE(datagramSocket(), 0);
    EXPECT_TRUE(isOn(SO_BROADCAST));
    EXPECT_TRUE(isOn(SO_REUSEADDR));
    EXPECT_NE(fcntl(datagramSocket(), F_GETFL) & O_NONBLOCK, 0);
}

[[noreturn]] void endWith(bool holds) {
    std::_Exit(holds ? 0 : 1);
}

std::string numbered(int number) {
    return fmt::format("$TEST,{:08},{:*<62}\r\n", number, "");
}

struct Arrivals {
    int count = 0;
    bool isInOrder = true;
    int last = -1;
};

/// What arrives up to the sentence `last`.
Arrivals receiveThrough(Receiver& receiver, int last) {
    Arrivals arrivals;
    while (arrivals.last != last) {
        const int number = std::atoi(receiver.next().c_str() + 6);
        arrivals.isInOrder = arrivals.isInOrder && number > arrivals.last;
        if (!arrivals.isInOrder) break;
        arrivals.last = number;
        ++arrivals.count;
    }
    return arrivals;
}

[[noreturn]] void sendABurst(int count, bool isTooLong) {
    if (!slowTheNetworkTo("5mbit")) endWith(false);
    Receiver receiver;
    receiver.keepEverything();
    UDPBroadcaster broadcaster;
    broadcaster.start("127.0.0.1", receiver.port());
    for (int i = 0; i < count; ++i) broadcaster.send(bytes(numbered(i)));
    const auto arrivals = receiveThrough(receiver, count - 1);
    const auto [thread, client, socket] = broadcaster.droppedSentences();
    const int accountedFor = arrivals.count + static_cast<int>(socket);
    const int fewest = count - count / 50;  // a busy system loses some on the way to the receiver
    endWith(arrivals.isInOrder && accountedFor >= fewest && accountedFor <= count && thread == 0 &&
            isTooLong == (socket > 0));
}

TEST_F(UDPBroadcasterDeathTest, sendsABurstWholeThroughASlowNetwork) {
    EXPECT_EXIT(sendABurst(5000, false), testing::ExitedWithCode(0), "");
}

TEST_F(UDPBroadcasterDeathTest, dropsAndCountsTheOldestBeyondAMebibyte) {
    EXPECT_EXIT(sendABurst(20'000, true), testing::ExitedWithCode(0), "");
}

[[noreturn]] void sendToSomewhere() {
    if (!slowTheNetworkTo("20mbit") || std::system("ip route add 255.255.255.255/32 dev lo") != 0)
        endWith(false);
    Receiver receiver("255.255.255.255");
    UDPBroadcaster broadcaster;
    broadcaster.start("somewhere", receiver.port());
    broadcaster.send(bytes("$all\r\n"));
    endWith(receiver.next() == "$all\r\n");
}

TEST_F(UDPBroadcasterDeathTest, sendsToEveryoneForAnAddressItCannotRead) {
    EXPECT_EXIT(sendToSomewhere(), testing::ExitedWithCode(0), "");
}

[[noreturn]] void stopInTheMidst() {
    if (!slowTheNetworkTo("8kbit")) endWith(false);
    UDPBroadcaster broadcaster;
    broadcaster.start("127.0.0.1", 9);
    for (int i = 0; i < 10'000; ++i) broadcaster.send(bytes(numbered(i)));
    const auto before = std::chrono::steady_clock::now();
    broadcaster.stop();
    const auto took = std::chrono::steady_clock::now() - before;
    endWith(took < std::chrono::seconds(5) && broadcaster.droppedSentences().socket > 9000);
}

TEST_F(UDPBroadcasterDeathTest, dropsAndCountsWhatStillWaitsWhenItStops) {
    EXPECT_EXIT(stopInTheMidst(), testing::ExitedWithCode(0), "");
}

#endif

}  // namespace
}  // namespace tidewright::network
