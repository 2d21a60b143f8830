#include "network/StreamClients.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <asio/io_context.hpp>
#include <thread>

#include "support/LoopbackClient.h"

namespace tidewright::network {
namespace {

using testing::SizeIs;

/// A socket that listens on a port that the system picks.
class Door {
public:
    Door() {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        EXPECT_EQ(bind(socket_, reinterpret_cast<const sockaddr*>(&address), size), 0);
        EXPECT_EQ(listen(socket_, 8), 0);
        getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &size);
        port_ = ntohs(address.sin_port);
    }

    Door(const Door&) = delete;
    ~Door() { ::close(socket_); }

    std::uint16_t port() const { return port_; }
    int accept() const { return ::accept(socket_, nullptr, nullptr); }

private:
    int socket_ = socket(AF_INET, SOCK_STREAM, 0);
    std::uint16_t port_ = 0;
};

struct StreamClientsTest : testing::Test {
    Door door;
    int changes = 0;
    StreamClients clients{queue, [this] { ++changes; }};
    platform::WorkQueue queue{"test.queue"};

    ~StreamClientsTest() override {
        queue.startAndWait([this](platform::WorkQueue::Task done) {
            clients.closeAll();
            clients.whenClosed(std::move(done));
        });
    }

    /// A client, and the server's descriptor of its connection.
    std::pair<LoopbackClient, int> connect(LoopbackClient::Options options = {}) {
        LoopbackClient client(door.port(), options);
        const int descriptor = door.accept();
        queue.runAndWait([&] {
            clients.add(asio::ip::tcp::socket(queue.context(), asio::ip::tcp::v4(), descriptor));
        });
        return {std::move(client), descriptor};
    }

    /// Broadcasts in one turn of the queue.
    void broadcast(int count, const std::string& text) {
        const auto sentence = std::make_shared<const std::string>(text);
        queue.runAndWait([&] {
            for (int i = 0; i < count; ++i) clients.broadcast(sentence);
        });
    }
};

TEST_F(StreamClientsTest, sendsABurstLongerThanItsTapeWhole) {
    auto [client, descriptor] = connect();
    constexpr int count = 3000;
    const std::string sentence(500, '*');
    std::string text;
    std::thread reader([&, &from = client] { text = from.read(count * sentence.size()); });
    broadcast(count, sentence);
    reader.join();
    EXPECT_EQ(text.size(), count * sentence.size());
}

TEST_F(StreamClientsTest, sendsToMoreClientsThanItServesInOneTurn) {
    std::vector<LoopbackClient> crowd;
    for (int i = 0; i < 300; ++i) crowd.push_back(connect().first);
    EXPECT_EQ(changes, 300);
    broadcast(1, "$one\r\n");
    for (auto& client : crowd) EXPECT_EQ(client.read(6), "$one\r\n");
}

TEST_F(StreamClientsTest, sendsWithoutWaitingToFillAPacket) {
    const auto [client, descriptor] = connect();
    int isOn = 0;
    socklen_t size = sizeof isOn;
    ASSERT_EQ(getsockopt(descriptor, IPPROTO_TCP, TCP_NODELAY, &isOn, &size), 0);
    EXPECT_NE(isOn, 0);
}

TEST_F(StreamClientsTest, servesTheOthersWhileItWaitsForOneToAcknowledge) {
    auto [slow, slowDescriptor] = connect({.receiveBufferBytes = 4096});
    auto [healthy, healthyDescriptor] = connect();
    std::thread reader([&from = healthy] { from.readThrough("$last\r\n"); });
    broadcast(8000, std::string(500, '*'));
    bool isClosed = false;
    queue.runAndWait([&] {
        EXPECT_TRUE(clients.close(1));
        clients.whenClosed([&] { isClosed = true; });
        clients.broadcast(std::make_shared<const std::string>("$last\r\n"));
        EXPECT_FALSE(isClosed);
    });
    reader.join();
    queue.startAndWait(
        [this](platform::WorkQueue::Task done) { clients.whenClosed(std::move(done)); });
    EXPECT_TRUE(isClosed);
    EXPECT_THAT(clients.list(), SizeIs(1));
}

TEST_F(StreamClientsTest, sendsNothingNewToAClientThatIsBeingClosed) {
    auto [client, descriptor] = connect();
    const auto other = connect();
    broadcast(24'000, std::string(500, '*'));
    queue.runAndWait([&] {
        clients.close(1);
        clients.broadcast(std::make_shared<const std::string>("$late\r\n"));
    });
    EXPECT_EQ(client.readToEnd().find("$late"), std::string::npos);
}

TEST_F(StreamClientsTest, countsWhatWasMissedByThoseWhoAreGoneToo) {
    auto [slow, slowDescriptor] = connect({.receiveBufferBytes = 4096});
    broadcast(16'000, std::string(500, '*'));
    std::uint64_t missed = 0;
    queue.runAndWait([&] { missed = clients.missedSentences(); });
    EXPECT_GT(missed, 0);
    queue.runAndWait([&] { clients.close(1); });
    queue.runAndWait([&] { EXPECT_EQ(clients.missedSentences(), missed); });
}

}  // namespace
}  // namespace tidewright::network
