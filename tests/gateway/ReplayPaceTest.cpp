#include "gateway/ReplayPace.h"

#include <gmock/gmock.h>

#include <chrono>
#include <vector>

namespace tidewright::gateway {
namespace {
using namespace std::chrono_literals;

using Delays = std::vector<std::chrono::milliseconds>;

Delays delaysOf(const std::vector<std::string>& lines) {
    ReplayPace pace;
    Delays delays;
    for (const auto& each : lines)
        delays.push_back(std::chrono::round<std::chrono::milliseconds>(pace.delayOf(each)));
    return delays;
}

TEST(ReplayPaceTest, isTenLinesASecondWithoutTimes) {
    EXPECT_EQ(delaysOf({"a", "b", "$IIHDT,2.0,T*00"}), (Delays{0ms, 100ms, 100ms}));
}

TEST(ReplayPaceTest, isTenLinesASecondUntilATimeIsMet) {
    EXPECT_EQ(delaysOf({"a", "$GPRMC,120000,A", "b", "$GPRMC,120002,A"}),
              (Delays{0ms, 100ms, 0ms, 2000ms}));
    EXPECT_EQ(delaysOf({"$GPRMC,120000,A", "b", "$GPRMC,120002,A"}), (Delays{0ms, 0ms, 2000ms}));
}

TEST(ReplayPaceTest, isThatOfTagBlocksInSecondsAndMilliseconds) {
    EXPECT_EQ(delaysOf({"\\c:100*00\\a", "\\c:101*00\\b", "\\s:x,c:00000101250*00\\c"}),
              (Delays{0ms, 1000ms, 250ms}));
}

TEST(ReplayPaceTest, isThatOfTheUtcOfAnyOfFourSentences) {
    EXPECT_EQ(delaysOf({"$GPRMC,120000.00,A", "$GPGGA,120000.25", "$GPGLL,,,,,120001,A",
                        "$GPZDA,120003.5,01,06,2026,00,00"}),
              (Delays{0ms, 250ms, 750ms, 2500ms}));
}

TEST(ReplayPaceTest, sendsWhatStandsBetweenTwoTimesWithTheFirst) {
    EXPECT_EQ(delaysOf({"$GPRMC,120000,A", "a", "!AIVDM", "$GPRMC,120001,A", "b"}),
              (Delays{0ms, 0ms, 0ms, 1000ms, 0ms}));
    EXPECT_EQ(delaysOf({"\\c:1*00\\a", "b", "\\s:x*00\\c", "\\c:2*00\\d"}),
              (Delays{0ms, 0ms, 0ms, 1000ms}));
}

TEST(ReplayPaceTest, isThatOfTheKindMetFirst) {
    EXPECT_EQ(delaysOf({"\\c:1*00\\a", "$GPRMC,120000,A", "$GPRMC,120010,A",
                        "\\c:3*00\\$GPRMC,120020,A"}),
              (Delays{0ms, 0ms, 0ms, 2000ms}));
    EXPECT_EQ(
        delaysOf({"$GPRMC,120000,A", "\\c:1*00\\a", "\\c:9*00\\b", "\\c:99*00\\$GPRMC,120002,A"}),
        (Delays{0ms, 0ms, 0ms, 2000ms}));
    EXPECT_EQ(delaysOf({"\\c:1*00\\$GPRMC,120000,A", "$GPRMC,120009,A", "\\c:2*00\\a"}),
              (Delays{0ms, 0ms, 1000ms}))
        << "a line that carries both";
}

TEST(ReplayPaceTest, isThatOfTheFirstTalker) {
    EXPECT_EQ(delaysOf({"$GPRMC,120000,A", "$GNRMC,120030,A", "$GPGGA,120001,", "$IIZDA,130000,"}),
              (Delays{0ms, 0ms, 1000ms, 0ms}));
}

TEST(ReplayPaceTest, countsAGapOfMoreThanAMinuteAsAMinute) {
    EXPECT_EQ(delaysOf({"$GPRMC,120000,A", "$GPRMC,120100,A", "$GPRMC,120200.01,A",
                        "$GPRMC,180000,A", "$GPRMC,180001,A"}),
              (Delays{0ms, 60'000ms, 60'000ms, 60'000ms, 1000ms}));
    EXPECT_EQ(delaysOf({"\\c:1*00\\a", "\\c:999999999999999999*00\\b", "\\c:2*00\\c"}),
              (Delays{0ms, 60'000ms, 0ms}));
}

TEST(ReplayPaceTest, countsAStepBackAsNone) {
    EXPECT_EQ(delaysOf({"$GPRMC,120010,A", "$GPRMC,120005,A", "$GPRMC,120006,A"}),
              (Delays{0ms, 0ms, 1000ms}));
    EXPECT_EQ(delaysOf({"\\c:9000000000*00\\a", "\\c:5*00\\b", "\\c:6*00\\c"}),
              (Delays{0ms, 0ms, 1000ms}));
    EXPECT_EQ(delaysOf({"$GPRMC,120000,A", "$GPRMC,000000,A"}), (Delays{0ms, 0ms}));
}

TEST(ReplayPaceTest, goesForwardOverMidnight) {
    EXPECT_EQ(delaysOf({"$GPRMC,235959,A", "$GPRMC,000001,A", "$GPRMC,000002,A"}),
              (Delays{0ms, 2000ms, 1000ms}));
    EXPECT_EQ(delaysOf({"$GPRMC,235959,A", "$GPRMC,115800,A"}), (Delays{0ms, 60'000ms}));
}

}  // namespace
}  // namespace tidewright::gateway
