#include "gateway/NearestName.h"

#include <gtest/gtest.h>

namespace tidewright::gateway {
namespace {

TEST(NearestNameTest, needsTheFewestChanges) {
    const std::vector<std::string_view> names{"--tcp-port", "--udp-port", "--preset", "--polar"};
    EXPECT_EQ(nearestName("--tcp-prot", names), "--tcp-port");
    EXPECT_EQ(nearestName("--udp", names), "--udp-port");
    EXPECT_EQ(nearestName("presets", names), "--preset");
    EXPECT_EQ(nearestName("--pollar", names), "--polar");
}

TEST(NearestNameTest, countsASwapOfNeighboursOnce) {
    EXPECT_EQ(nearestName("ab", {"ccb", "ba"}), "ba");
}

TEST(NearestNameTest, takesTheFirstOfEquals) {
    EXPECT_EQ(nearestName("x", {"b", "a"}), "b");
    EXPECT_EQ(nearestName("", {"b", "a"}), "b");
}

TEST(NearestNameTest, doesNotTakeLongOverLongWords) {
    EXPECT_EQ(nearestName(std::string(1'000'000, 'a'), {"a", "b"}), "a");
}

}  // namespace
}  // namespace tidewright::gateway
