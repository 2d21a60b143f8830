#include "platform/Observable.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tidewright::platform {
namespace {

struct Lamp : Observable {
    Published<bool> lit{*this, false};
    Published<int> watts{*this, 40, [this](const int& previous) { previousWatts = previous; }};
    int previousWatts = 0;
};

TEST(ObservableTest, tellsObserversAfterTheChange) {
    Lamp lamp;
    bool seen = false;
    const auto subscription = lamp.observe([&] { seen = lamp.lit; });
    lamp.lit = true;
    EXPECT_TRUE(seen);
}

TEST(ObservableTest, tellsThemAgainWhenTheSameValueIsAssigned) {
    Lamp lamp;
    int told = 0;
    const auto subscription = lamp.observe([&] { ++told; });
    lamp.lit = false;
    lamp.lit = false;
    EXPECT_EQ(told, 2);
}

TEST(ObservableTest, tellsNobodyWhoLetGo) {
    Lamp lamp;
    int told = 0;
    auto subscription = lamp.observe([&] { ++told; });
    subscription.reset();
    lamp.lit = true;
    EXPECT_EQ(told, 0);
}

TEST(ObservableTest, tellsObserversInTheOrderTheyCame) {
    Lamp lamp;
    std::string order;
    const auto first = lamp.observe([&] { order += "a"; });
    const auto second = lamp.observe([&] { order += "b"; });
    lamp.lit = true;
    EXPECT_EQ(order, "ab");
}

TEST(ObservableTest, sparesAnObserverThatIsLetGoDuringTheRound) {
    Lamp lamp;
    bool told = false;
    Subscription second;
    const auto first = lamp.observe([&] { second.reset(); });
    second = lamp.observe([&] { told = true; });
    lamp.lit = true;
    EXPECT_FALSE(told);
}

TEST(PublishedTest, runsItsHookBeforeTheObservers) {
    Lamp lamp;
    int seen = 0;
    const auto subscription = lamp.observe([&] { seen = lamp.previousWatts; });
    lamp.watts = 60;
    EXPECT_EQ(seen, 40);
    EXPECT_EQ(lamp.watts, 60);
}

}  // namespace
}  // namespace tidewright::platform
