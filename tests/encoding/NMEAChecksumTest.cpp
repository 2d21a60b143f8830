#include "encoding/NMEAChecksum.h"

#include <gtest/gtest.h>

namespace tidewright::encoding {
namespace {

using NMEAChecksum::compute;
using NMEAChecksum::sentence;

constexpr std::string_view fix = "GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,";

TEST(NMEAChecksumTest, isZeroForAnEmptyText) {
    EXPECT_EQ(compute(""), 0);
}

TEST(NMEAChecksumTest, agreesWithPublishedSentences) {
    EXPECT_EQ(compute(fix), 0x47);
    EXPECT_EQ(compute("GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W"), 0x6A);
    EXPECT_EQ(compute("GPVTG,054.7,T,034.4,M,005.5,N,010.2,K"), 0x48);
    EXPECT_EQ(compute("GPGLL,4916.45,N,12311.12,W,225444,A,"), 0x1D);
    EXPECT_EQ(compute("AIVDM,1,1,,B,177KQJ5000G?tO`K>RA1wUbN0TKH,0"), 0x5C);
}

TEST(NMEAChecksumTest, countsEveryByteOfALetterOutsideASCII) {
    EXPECT_EQ(compute("\u00e9"), 0xC3 ^ 0xA9);
}

TEST(NMEAChecksumTest, framesTheBodyAndEndsTheLine) {
    EXPECT_EQ(sentence('$', fix, false), "$" + std::string(fix) + "*47\r\n");
    EXPECT_EQ(sentence('!', "AIVDM", false), "!AIVDM*57\r\n");
    EXPECT_EQ(sentence('$', "", false), "$*00\r\n");
}

TEST(NMEAChecksumTest, writesASmallSumWithALeadingZero) {
    EXPECT_EQ(sentence('$', "KA", false), "$KA*0A\r\n");
}

TEST(NMEAChecksumTest, invertsAllEightBitsAndNoMoreWhenCorrupt) {
    EXPECT_EQ(sentence('$', fix, true), "$" + std::string(fix) + "*B8\r\n");
    EXPECT_EQ(sentence('$', "KA", true), "$KA*F5\r\n");
    EXPECT_EQ(sentence('$', "", true), "$*FF\r\n");
}

}  // namespace
}  // namespace tidewright::encoding
