#include "platform/LocalTime.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <string>

namespace tidewright::platform {
namespace {
using namespace std::chrono_literals;

struct LocalTimeTest : testing::Test {
    static void travelTo(const char* zone) {
        setenv("TZ", zone, 1);
        tzset();
    }
    ~LocalTimeTest() override {
        unsetenv("TZ");
        tzset();
    }
};

TEST_F(LocalTimeTest, followsDaylightSavingTime) {
    travelTo("CET-1CEST,M3.5.0,M10.5.0/3");
    EXPECT_EQ(systemUtcOffset(std::chrono::sys_days{std::chrono::January / 15 / 2026}), 1h);
    EXPECT_EQ(systemUtcOffset(std::chrono::sys_days{std::chrono::July / 15 / 2026}), 2h);
}

TEST_F(LocalTimeTest, isNegativeWestOfGreenwich) {
    travelTo("EST5");
    EXPECT_EQ(systemUtcOffset(std::chrono::sys_days{std::chrono::January / 15 / 2026}), -5h);
}

}  // namespace
}  // namespace tidewright::platform
