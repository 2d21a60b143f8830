#include "platform/Lifetime.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>

namespace tidewright::platform {
namespace {

TEST(LifetimeTest, letsCallsThroughWhileItsOwnerLives) {
    const Lifetime lifetime;
    int seen = 0;
    const std::function<void(int)> guarded = lifetime.guard([&](int value) { seen = value; });
    guarded(7);
    EXPECT_EQ(seen, 7);
}

TEST(LifetimeTest, silencesCallsThatComeAfterItsOwner) {
    std::optional<Lifetime> lifetime(std::in_place);
    bool called = false;
    const std::function<void()> guarded = lifetime->guard([&] { called = true; });
    lifetime.reset();
    guarded();
    EXPECT_FALSE(called);
}

}  // namespace
}  // namespace tidewright::platform
