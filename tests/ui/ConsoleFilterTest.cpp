#include "ui/ConsoleFilter.h"

#include <gtest/gtest.h>

namespace tidewright::ui {
namespace {

bool passes(const char* words, const char* text) {
    return ConsoleFilter{{}, QString::fromUtf8(words)}.passes(
        {.id = {}, .time = "12:00:00", .transport = "TCP", .text = text});
}

TEST(ConsoleFilterTest, letsEverythingPassWhileItIsEmpty) {
    EXPECT_TRUE(passes("", "$GPRMC,1"));
    EXPECT_TRUE(passes("  ", "Simulation arrêtée"));
}

TEST(ConsoleFilterTest, looksForCapitalsInTheNameOfASentence) {
    EXPECT_TRUE(passes("RMC", "$GPRMC,1"));
    EXPECT_TRUE(passes("GPRMC", "$GPRMC,1"));
    EXPECT_TRUE(passes("AIVDM", "!AIVDM,1,1,,A,0"));
    EXPECT_FALSE(passes("RMC", "!AIVDM,1,1,,A,13RMC@P,0*00"));
}

TEST(ConsoleFilterTest, looksForCapitalsInTextsThatAreNoSentence) {
    EXPECT_TRUE(passes("TCP", "Clients TCP lâchés"));
}

TEST(ConsoleFilterTest, looksForOtherWordsAnywhereInCapitalsOrNot) {
    EXPECT_TRUE(passes("rmc", "$GPRMC,1"));
    EXPECT_TRUE(passes("4723", "$GPRMC,120000.00,A,4723.9"));
    EXPECT_TRUE(passes("ARRÊTÉE", "Simulation arrêtée"));
    EXPECT_FALSE(passes("4724", "$GPRMC,120000.00,A,4723.9"));
}

TEST(ConsoleFilterTest, demandsEveryWord) {
    EXPECT_TRUE(passes("RMC 4723", "$GPRMC,120000.00,A,4723.9"));
    EXPECT_FALSE(passes("GGA 4723", "$GPRMC,120000.00,A,4723.9"));
}

TEST(ConsoleFilterTest, knowsTransportsApart) {
    const gateway::ConsoleLine line{.id = {}, .time = "", .transport = "UDP", .text = "x"};
    EXPECT_TRUE((ConsoleFilter{QStringLiteral("UDP"), {}}.passes(line)));
    EXPECT_FALSE((ConsoleFilter{QStringLiteral("TCP"), {}}.passes(line)));
}

}  // namespace
}  // namespace tidewright::ui
