#include "encoding/SentenceTime.h"

#include <gtest/gtest.h>

namespace tidewright::encoding {
namespace {
using namespace std::chrono_literals;

TimeOfDay by(const char* talker, std::chrono::nanoseconds time) {
    return {.talker = talker, .sinceMidnight = time};
}

TEST(SentenceTimeTest, readsSecondsAndMillisecondsOfATagBlock) {
    EXPECT_EQ(tagBlockTime("\\c:1780315200*53\\$IIHDT,2.0,T*00\r\n"), 1'780'315'200s);
    EXPECT_EQ(tagBlockTime("\\c:1780315200123*53\\$IIHDT,2.0,T*00\r\n"), 1'780'315'200'123ms);
    EXPECT_EQ(tagBlockTime("\\c:0*53\\"), 0ms);
    EXPECT_EQ(tagBlockTime("\\c:9999999999*53\\"), 9'999'999'999s);
    EXPECT_EQ(tagBlockTime("\\c:00000000001*53\\"), 1ms);
}

TEST(SentenceTimeTest, findsTheTimeAmongTheFieldsOfABlockAndAmongBlocks) {
    EXPECT_EQ(tagBlockTime("\\g:1-2-3,s:r001,c:12*00\\!AIVDM"), 12s);
    EXPECT_EQ(tagBlockTime("\\c:12,s:r001*00\\!AIVDM"), 12s);
    EXPECT_EQ(tagBlockTime("\\g:1-2-3*00\\\\c:12*00\\!AIVDM"), 12s);
    EXPECT_EQ(tagBlockTime("\\c:12\\!AIVDM"), 12s) << "without a checksum of its own";
}

TEST(SentenceTimeTest, findsNoTimeWhereATagBlockHasNone) {
    for (const char* line :
         {"", "\\", "\\\\", "\\c:\\", "\\c:1x*00\\", "\\c:-1*00\\", "\\c:+1*00\\", "\\c:1.5*00\\",
          "\\c: 1*00\\", "\\C:1*00\\", "\\sc:1*00\\", "\\*c:1\\", "\\s:x*00,c:1\\",
          "\\c:1234567890123456789*00\\", "\\c:12*00", "$IIHDT,2.0,T*00\\c:1*00\\", "c:12"})
        EXPECT_EQ(tagBlockTime(line), std::nullopt) << line;
}

TEST(SentenceTimeTest, readsTheUtcOfFourSentences) {
    EXPECT_EQ(timeOfDay("$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,,*00\r\n"),
              by("GP", 12h + 35min + 19s));
    EXPECT_EQ(timeOfDay("$GNGGA,000000.00,4807.038,N,01131.000,E,1,08,0.9,545.4,M,,M,,*00"),
              by("GN", 0s));
    EXPECT_EQ(timeOfDay("$IIGLL,4916.45,N,12311.12,W,225444.25,A,A*00\r\n"),
              by("II", 22h + 54min + 44s + 250ms));
    EXPECT_EQ(timeOfDay("$GPZDA,235959.999,01,06,2026,00,00*00\r\n"), by("GP", 24h - 1ms));
}

TEST(SentenceTimeTest, readsTheUtcBehindTagBlocks) {
    EXPECT_EQ(timeOfDay("\\c:1*00\\\\s:x*00\\$GPRMC,123519,A*00\r\n"), by("GP", 45319s));
}

TEST(SentenceTimeTest, readsAFractionOfAnyLengthOrNone) {
    EXPECT_EQ(timeOfDay("$GPRMC,000001.,A"), by("GP", 1s));
    EXPECT_EQ(timeOfDay("$GPRMC,000001.5"), by("GP", 1500ms));
    EXPECT_EQ(timeOfDay("$GPRMC,000001*00"), by("GP", 1s));
    EXPECT_EQ(timeOfDay("$GPRMC,000001\r\n"), by("GP", 1s));
    EXPECT_EQ(timeOfDay("$GPRMC,000001.12345678987654321,A"), by("GP", 1'123'456'789ns));
}

TEST(SentenceTimeTest, findsNoUtcInOtherLines) {
    for (const char* line : {"",
                             "$",
                             "$GPRMC",
                             "$GPRMC,",
                             "$GPRMC,,A",
                             "$GPRMC,12351,A",
                             "$GPRMC,1235199,A",
                             "$GPRMC,240000,A",
                             "$GPRMC,126000,A",
                             "$GPRMC,123560,A",
                             "$GPRMC,12-519,A",
                             "$GPRMC,123519.x,A",
                             "$GPRMC,123519.1.2,A",
                             "$GPVTG,123519,A",
                             "$GPGLL,123519,A",
                             "$GPGLL,,,,,",
                             "$GPRMC123519",
                             "!GPRMC,123519,A",
                             "GPRMC,123519,A",
                             "$gprmc,123519,A",
                             "$G1RMC,123519,A",
                             "\\c:1*00$GPRMC,123519,A",
                             " $GPRMC,123519,A"})
        EXPECT_EQ(timeOfDay(line), std::nullopt) << line;
}

TEST(SentenceTimeTest, takesAnyBytes) {
    const std::string_view withNul(
        "$GPRMC,12\0"
        "519,A",
        15);
    EXPECT_EQ(timeOfDay(withNul), std::nullopt);
    EXPECT_EQ(timeOfDay("$GPRMC,\xFF\xFE\x80\x81\x82\x83,A"), std::nullopt);
    EXPECT_EQ(tagBlockTime("\\c:\xFF*00\\"), std::nullopt);
}

}  // namespace
}  // namespace tidewright::encoding
