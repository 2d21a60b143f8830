#include "encoding/AISEncoder.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/AivdmDecoder.h"
#include "support/ForeignNumbers.h"

namespace tidewright::encoding {
namespace {
using namespace std::chrono_literals;
using simulation::AISTarget;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// The decoder reads what others have published, or its word would be worth nothing.
TEST(AivdmDecoderTest, readsAPublishedPositionReport) {
    EXPECT_EQ(AivdmDecoder({"!AIVDM,1,1,,B,177KQJ5000G?tO`K>RA1wUbN0TKH,0*5C"}).positionReport(),
              (PositionReport{1, 0, 477553000, 5, 0, 0, 0, -73407500, 28549700, 510, 181, 15, 0, 0,
                              0, 149208}));
}

TEST(AivdmDecoderTest, readsAPublishedStaticReport) {
    AivdmDecoder decoder{
        "!AIVDM,2,1,3,B,55P5TL01VIaAL@7WKO@mBplU@<PDhh000000001S;AJ::4A80?4i@E53,0*3E",
        "!AIVDM,2,2,3,B,1@0000000000000,2*55"};
    EXPECT_EQ(
        decoder.staticReport(),
        (StaticReport{
            5, 0, 369190000, 0, 6710932, "WDA9674", "MT.MITCHELL@@@@@@@@@", 99, 90, 90, 10, 10,
            1, 1, 2,         8, 0,       60,        "SEATTLE@@@@@@@@@@@@@", 0,  0}));
}

struct AISEncoderTest : testing::Test {
    AISEncoder encoder{.now = platform::WallTime{} + 24h + 3min + 37s + 999ms};
    AISTarget target{.mmsi = 227123456,
                     .name = "PEN DUICK",
                     .latitude = 47.5,
                     .longitude = -3.4,
                     .sog = 6.5,
                     .cog = 123.4,
                     .heading = 123.4,
                     .shipType = 36,
                     .callsign = "FGA0"};

    PositionReport position() const {
        return AivdmDecoder({encoder.positionReport(target)}).positionReport();
    }
    StaticReport particulars() const {
        const auto [first, second] = encoder.staticReport(target, 1);
        return AivdmDecoder({first, second}).staticReport();
    }
};

TEST_F(AISEncoderTest, reportsThePositionInOneSentence) {
    EXPECT_EQ(encoder.positionReport(target),
              "!AIVDM,1,1,,A,13HVQ00P11OhKr0K;P84lSo:0000,0*53\r\n");
    EXPECT_EQ(position(), (PositionReport{1, 0, 227123456, 0, -128, 65, 0, -2040000, 28500000, 1234,
                                          123, 37, 0, 0, 0, 0}));
}

TEST_F(AISEncoderTest, reportsTheParticularsInTwoSentences) {
    const auto sentences = encoder.staticReport(target, 1);
    EXPECT_EQ(sentences[0],
              "!AIVDM,2,1,1,A,53HVQ0000000HL700010Dr0ADT<d00000000000T00000000000000000000,0*04"
              "\r\n");
    EXPECT_EQ(sentences[1], "!AIVDM,2,2,1,A,00000000000,2*25\r\n");
    EXPECT_EQ(
        particulars(),
        (StaticReport{5, 0, 227123456, 0, 0, "FGA0@@@", "PEN DUICK@@@@@@@@@@@", 36, 0, 0, 0, 0,
                      0, 0, 0,         0, 0, 0,         "@@@@@@@@@@@@@@@@@@@@", 0,  0}));
}

TEST_F(AISEncoderTest, sends168BitsOfPositionAnd424OfParticulars) {
    const auto [first, second] = encoder.staticReport(target, 1);
    EXPECT_EQ(AivdmDecoder({encoder.positionReport(target)}).length(), 168U);
    EXPECT_EQ(AivdmDecoder({first, second}).length(), 424U);
    EXPECT_EQ(AivdmDecoder::fields(first).at(5).size(), 60U);
    EXPECT_EQ(AivdmDecoder::fields(second).at(5).size(), 11U);
}

TEST_F(AISEncoderTest, joinsTheTwoSentencesByTheirSequence) {
    for (const int sequence : {0, 9}) {
        const auto [first, second] = encoder.staticReport(target, sequence);
        EXPECT_EQ(AivdmDecoder::fields(first).at(3), std::to_string(sequence));
        EXPECT_EQ(AivdmDecoder::fields(second).at(3), std::to_string(sequence));
    }
}

TEST_F(AISEncoderTest, limitsTheSpeedToTheHighestThatCanBeSaid) {
    for (const auto& [knots, sent] : {std::pair{0.0, 0},
                                      {0.04, 0},
                                      {0.05, 1},
                                      {22.0, 220},
                                      {102.2, 1022},
                                      {102.3, 1022},
                                      {500.0, 1022}}) {
        target.sog = knots;
        EXPECT_EQ(position().speed, sent) << knots;
    }
}

TEST_F(AISEncoderTest, neverSendsACourseOfAFullTurn) {
    for (const auto& [degrees, sent] :
         {std::pair{-0.04, 3599}, {359.96, 3599}, {360.0, 0}, {-10.0, 3500}, {0.05, 1}}) {
        target.cog = degrees;
        EXPECT_EQ(position().course, sent) << degrees;
    }
}

TEST_F(AISEncoderTest, roundsTheHeadingUpToAFullTurn) {
    for (const auto& [degrees, sent] :
         {std::pair{359.5, 360}, {359.4, 359}, {-10.0, 350}, {360.0, 0}, {0.5, 1}}) {
        target.heading = degrees;
        EXPECT_EQ(position().heading, sent) << degrees;
    }
}

TEST_F(AISEncoderTest, writesSouthAndWestInTwosComplement) {
    target.latitude = -45.5;
    target.longitude = -179.99999;
    EXPECT_EQ(position().latitude, -27300000);
    EXPECT_EQ(position().longitude, -107999994);
}

TEST_F(AISEncoderTest, roundsAPositionToTheNearestTenThousandthOfAMinute) {
    target.latitude = -1.5 / 600000;
    target.longitude = 2.4 / 600000;
    EXPECT_EQ(position().latitude, -2);
    EXPECT_EQ(position().longitude, 2);
}

TEST_F(AISEncoderTest, stampsTheSecondOfEncoding) {
    EXPECT_EQ(position().second, 37);
    encoder.now += 1ms;
    EXPECT_EQ(position().second, 38);
    encoder.now = platform::WallTime{} - 500ms;
    EXPECT_EQ(position().second, 59);
}

TEST_F(AISEncoderTest, saysTheSameTwiceWithinASecond) {
    const AISEncoder other{.now = encoder.now - 900ms};
    EXPECT_EQ(other.positionReport(target), encoder.positionReport(target));
    EXPECT_EQ(other.staticReport(target, 4), encoder.staticReport(target, 4));
}

TEST_F(AISEncoderTest, cutsALongNameAndPadsAShortCallSign) {
    target.name = "THE QUICK BROWN FOX JUMPS";
    target.callsign = "FGA0";
    EXPECT_EQ(particulars().name, "THE QUICK BROWN FOX ");
    EXPECT_EQ(particulars().callsign, "FGA0@@@");
}

TEST_F(AISEncoderTest, sendsNamesInCapitalsAndAccentedOnesAsAt) {
    target.name = "l'\u00c9toile \u00e9";
    EXPECT_EQ(particulars().name, "L'@TOILE @@@@@@@@@@@");
}

TEST_F(AISEncoderTest, spoilsTheChecksumOfEverySentenceOnRequest) {
    encoder.corrupt = true;
    const auto [first, second] = encoder.staticReport(target, 1);
    EXPECT_EQ(encoder.positionReport(target),
              "!AIVDM,1,1,,A,13HVQ00P11OhKr0K;P84lSo:0000,0*AC\r\n");
    EXPECT_FALSE(AivdmDecoder::isIntact(first));
    EXPECT_FALSE(AivdmDecoder::isIntact(second));
}

TEST_F(AISEncoderTest, writesPlainNumbersWhateverTheLanguageOfTheDesktop) {
    const auto atHome = encoder.staticReport(target, 1234);
    const ForeignNumbers abroad;
    EXPECT_EQ(encoder.staticReport(target, 1234), atHome);
}

TEST_F(AISEncoderTest, stopsTheProgramOnANegativeIdentityTypeOrSpeed) {
    auto wrong = target;
    wrong.mmsi = -1;
    EXPECT_DEATH(encoder.positionReport(wrong), "an MMSI must not be negative");
    EXPECT_DEATH(encoder.staticReport(wrong, 1), "an MMSI must not be negative");
    wrong = target;
    wrong.shipType = -1;
    EXPECT_DEATH(encoder.staticReport(wrong, 1), "a ship type must not be negative");
    wrong.sog = -1;
    EXPECT_DEATH(encoder.positionReport(wrong), "a speed over ground must not be negative");
}

TEST_F(AISEncoderTest, stopsTheProgramOnAValueThatIsNotFinite) {
    for (double AISTarget::*field : {&AISTarget::latitude, &AISTarget::longitude, &AISTarget::sog,
                                     &AISTarget::cog, &AISTarget::heading}) {
        for (const double value : {infinity, notANumber, -infinity}) {
            auto wrong = target;
            wrong.*field = value;
            EXPECT_DEATH(encoder.positionReport(wrong), "an AIS value must be finite");
        }
    }
}

TEST_F(AISEncoderTest, stopsTheProgramOnAValueBeyondCounting) {
    target.latitude = 1e14;
    EXPECT_DEATH(encoder.positionReport(target), "an AIS value must be finite");
}

}  // namespace
}  // namespace tidewright::encoding
