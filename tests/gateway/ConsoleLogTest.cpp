#include "gateway/ConsoleLog.h"

#include <gmock/gmock.h>

#include "gateway/GatewayFixture.h"

namespace tidewright::gateway {
namespace {
using testing::IsEmpty;

struct ConsoleLogTest : GatewayFixture {};

TEST_F(ConsoleLogTest, keepsTheLastSixHundredLines) {
    for (int i = 0; i < 601; ++i) gateway.log("SYS", std::to_string(i));
    EXPECT_EQ(gateway.consoleLines().size(), 600);
    EXPECT_EQ(gateway.consoleLines().front().text, "1");
    EXPECT_EQ(gateway.consoleLines().back().text, "600");
    EXPECT_EQ(gateway.consoleAppendedCount(), 601);
}

TEST_F(ConsoleLogTest, keepsASentenceWithoutItsLineEnd) {
    gateway.log("TCP", "$IIHDT,2.0,T*00\r\n");
    EXPECT_EQ(gateway.consoleLines().back().text, "$IIHDT,2.0,T*00");
}

TEST_F(ConsoleLogTest, cutsALongTextShort) {
    const std::string text(ConsoleLog::longestText, 'a');
    gateway.log("TCP", text + "\r\n");
    EXPECT_EQ(gateway.consoleLines().back().text, text);
    gateway.log("TCP", text + "b\r\n");
    EXPECT_EQ(gateway.consoleLines().back().text, text + "…");
    gateway.log("TCP", std::string(8 << 20, 'a'));
    EXPECT_EQ(gateway.consoleLines().back().text, text + "…");
    EXPECT_LT(gateway.consoleLines().back().text.capacity(), 4 * ConsoleLog::longestText);
}

TEST_F(ConsoleLogTest, cutsALongTextBetweenTwoCharacters) {
    for (const std::size_t missing : {3U, 2U, 1U}) {
        const std::string front(ConsoleLog::longestText - missing, 'a');
        gateway.log("TCP", front + "\xF0\x9F\x90\x9F and more");
        EXPECT_EQ(gateway.consoleLines().back().text, front + "…");
    }
    gateway.log("TCP", std::string(20'000, '\x80'));
    EXPECT_EQ(gateway.consoleLines().back().text,
              std::string(ConsoleLog::longestText - 3, '\x80') + "…");
}

TEST_F(ConsoleLogTest, losesWhatIsLoggedWhilePaused) {
    gateway.log("SYS", "before");
    gateway.consolePaused = true;
    gateway.log("SYS", "meanwhile");
    gateway.consolePaused = false;
    gateway.log("SYS", "after");
    EXPECT_EQ(gateway.consoleLines().size(), 2);
    EXPECT_EQ(gateway.consoleLines().back().text, "after");
}

TEST_F(ConsoleLogTest, copiesLinesWithOneLineFeedBetweenThem) {
    gateway.log("SYS", "one");
    gateway.log("UDP", "two");
    gateway.copyConsole();
    EXPECT_EQ(host.clipboard, "12:00:00 SYS > one\n12:00:00 UDP > two");
}

TEST_F(ConsoleLogTest, copiesAnEmptyConsoleAsAnEmptyText) {
    host.clipboard = "something else";
    gateway.copyConsole();
    EXPECT_EQ(host.clipboard, "");
}

TEST_F(ConsoleLogTest, shows24HourLocalTime) {
    host.utcOffset = std::chrono::hours(-13);
    gateway.log("SYS", "yesterday, still");
    EXPECT_EQ(gateway.consoleLines().back().time, "23:00:00");
}

TEST_F(ConsoleLogTest, tellsTwoEqualLinesApart) {
    gateway.log("SYS", "same");
    gateway.log("SYS", "same");
    EXPECT_NE(gateway.consoleLines()[0].id, gateway.consoleLines()[1].id);
}

TEST_F(ConsoleLogTest, canBeClearedWhilePaused) {
    gateway.log("SYS", "gone soon");
    gateway.consolePaused = true;
    gateway.clearConsole();
    EXPECT_THAT(gateway.consoleLines(), IsEmpty());
}

TEST_F(ConsoleLogTest, staysThroughAStopAndAStart) {
    gateway.start();
    gateway.stop();
    gateway.start();
    EXPECT_EQ(systemLines().size(), 3);
}

TEST_F(ConsoleLogTest, countsWhatAPauseMissed) {
    gateway.log("SYS", "kept");
    gateway.consolePaused = true;
    gateway.log("SYS", "missed");
    gateway.log("SYS", "missed too");
    gateway.consolePaused = false;
    gateway.log("SYS", "kept again");
    EXPECT_EQ(gateway.consoleMissedCount(), 2);
    EXPECT_EQ(gateway.consoleAppendedCount(), 2);
}

}  // namespace
}  // namespace tidewright::gateway
