#include "network/DatagramBacklog.h"

#include <gtest/gtest.h>

namespace tidewright::network {
namespace {

struct DatagramBacklogTest : testing::Test {
    DatagramBacklog backlog{8};

    std::size_t add(const char* text) {
        return backlog.add(std::make_shared<const std::string>(text));
    }

    std::string takeAll() {
        std::string all;
        for (; !backlog.isEmpty(); backlog.removeOldest()) all += backlog.oldest();
        return all;
    }
};

TEST_F(DatagramBacklogTest, keepsTheOrder) {
    add("abc");
    add("def");
    EXPECT_EQ(takeAll(), "abcdef");
}

TEST_F(DatagramBacklogTest, dropsTheOldestBeyondItsBound) {
    EXPECT_EQ(add("abc"), 0);
    EXPECT_EQ(add("def"), 0);
    EXPECT_EQ(add("gh"), 0);
    EXPECT_EQ(add("ijkl"), 2);
    EXPECT_EQ(takeAll(), "ghijkl");
}

TEST_F(DatagramBacklogTest, keepsTheNewestEvenIfItAloneIsLonger) {
    EXPECT_EQ(add("abc"), 0);
    EXPECT_EQ(add("0123456789"), 1);
    EXPECT_EQ(takeAll(), "0123456789");
}

TEST_F(DatagramBacklogTest, hasRoomAgainForWhatWasSent) {
    add("abcd");
    add("efgh");
    backlog.removeOldest();
    EXPECT_EQ(add("ijkl"), 0);
    EXPECT_EQ(takeAll(), "efghijkl");
}

TEST_F(DatagramBacklogTest, hasAllItsRoomAgainOnceCleared) {
    add("abcd");
    add("efgh");
    EXPECT_EQ(backlog.clear(), 2);
    EXPECT_TRUE(backlog.isEmpty());
    EXPECT_EQ(add("abcd"), 0);
    EXPECT_EQ(add("efgh"), 0);
}

}  // namespace
}  // namespace tidewright::network
