#include "platform/TimeText.h"

#include <gtest/gtest.h>

#include "platform/PacedMainLoop.h"

namespace tidewright::platform {
namespace {
using namespace std::chrono_literals;

TEST(TimeTextTest, readsSpansInEveryUnitAndInFallingOrder) {
    EXPECT_EQ(parseDuration("90s"), 90s);
    EXPECT_EQ(parseDuration("10m"), 10min);
    EXPECT_EQ(parseDuration("24h"), 24h);
    EXPECT_EQ(parseDuration("250ms"), 250ms);
    EXPECT_EQ(parseDuration("1h30m"), 90min);
    EXPECT_EQ(parseDuration("1h2m3s4ms"), 1h + 2min + 3s + 4ms);
    EXPECT_EQ(parseDuration("0.5s"), 500ms);
    EXPECT_EQ(parseDuration("0s"), 0s);
}

TEST(TimeTextTest, refusesWhatIsNoSpan) {
    for (const char* text : {"", "5", "s", "5 s", "-5s", "+5s", "5s ", "30m1h", "5s5s", "1e3s",
                             ".5s", "5.s", "1.2.3s", "5d", "5S", "nans", "infs", "1000000h", "5s5"})
        EXPECT_EQ(parseDuration(text), std::nullopt) << text;
}

TEST(TimeTextTest, readsAMomentOfUtc) {
    EXPECT_EQ(parseUtc("1970-01-01T00:00:00Z"), WallTime{});
    EXPECT_EQ(parseUtc("2026-06-01T12:30:59Z"),
              WallTime(std::chrono::sys_days{std::chrono::June / 1 / 2026} + 12h + 30min + 59s));
    EXPECT_TRUE(parseUtc("2028-02-29T00:00:00Z"));
}

TEST(TimeTextTest, refusesWhatIsNoMoment) {
    for (const char* text :
         {"", "2026-06-01", "2026-06-01T12:00:00", "2026-06-01T12:00:00+02:00",
          "2026-6-01T12:00:00Z", "2026-06-01 12:00:00Z", "2026-02-29T00:00:00Z",
          "2026-13-01T00:00:00Z", "2026-00-01T00:00:00Z", "2026-06-00T00:00:00Z",
          "2026-06-01T24:00:00Z", "2026-06-01T12:60:00Z", "2026-06-01T12:00:60Z",
          "1969-12-31T23:59:59Z", "2200-01-01T00:00:00Z", "2026-06-01t12:00:00z",
          "+026-06-01T12:00:00Z", "2026-06-01T12:00:00.5Z", "2026--6-01T12:00:00Z"})
        EXPECT_EQ(parseUtc(text), std::nullopt) << text;
}

TEST(TimeTextTest, writesAMomentAsItReadsIt) {
    for (const char* text :
         {"1970-01-01T00:00:00Z", "2026-06-01T02:03:04Z", "2199-12-31T23:59:59Z"})
        EXPECT_EQ(utcText(parseUtc(text).value()), text);
    EXPECT_EQ(utcText(WallTime(1999ms)), "1970-01-01T00:00:01Z");
}

TEST(TimeTextTest, readsAndWritesSpeeds) {
    for (const char* text : {"0.1", "1", "2.5", "10", "1000", "max"})
        EXPECT_EQ(speedText(parseSpeed(text).value()), text);
    EXPECT_EQ(parseSpeed("max"), PacedMainLoop::unlimited);
    for (const char* text :
         {"", "0", "0.09", "1000.1", "-1", "+1", "1e2", "MAX", "x2", "2x", "inf"})
        EXPECT_EQ(parseSpeed(text), std::nullopt) << text;
}

}  // namespace
}  // namespace tidewright::platform
