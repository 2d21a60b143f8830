#include "network/TCPListener.h"

#include <gtest/gtest.h>

#include <chrono>
#include <vector>

#include "support/FreePort.h"
#include "support/LoopbackClient.h"

namespace tidewright::network {
namespace {

struct TCPListenerTest : testing::Test {
    asio::io_context context;
    std::vector<asio::ip::tcp::socket> accepted;
    std::uint16_t port = freePort();
    std::shared_ptr<TCPListener> listener = std::make_shared<TCPListener>(
        context, [this](asio::ip::tcp::socket socket) { accepted.push_back(std::move(socket)); },
        [](const asio::error_code& error) { ADD_FAILURE() << error.message(); });

    void SetUp() override {
        ASSERT_FALSE(listener->open());
        listener->listen(port);
    }

    void acceptUntil(std::size_t count) {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
        while (accepted.size() < count && std::chrono::steady_clock::now() < deadline)
            context.run_one_until(deadline);
    }
};

TEST_F(TCPListenerTest, acceptsEveryoneWhoWaited) {
    std::vector<LoopbackClient> waiting;
    for (int i = 0; i < 100; ++i) waiting.emplace_back(port);
    acceptUntil(waiting.size());
    EXPECT_EQ(accepted.size(), waiting.size());
    const LoopbackClient late(port);
    acceptUntil(waiting.size() + 1);
    EXPECT_EQ(accepted.size(), waiting.size() + 1);
}

TEST_F(TCPListenerTest, leavesTimeForOtherWorkWhileManyWait) {
    std::vector<LoopbackClient> waiting;
    for (int i = 0; i < 100; ++i) waiting.emplace_back(port);
    context.run_one_for(std::chrono::seconds(10));
    EXPECT_LT(accepted.size(), waiting.size());
}

}  // namespace
}  // namespace tidewright::network
