#include "encoding/NMEA0183Encoder.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/AivdmDecoder.h"
#include "support/ForeignNumbers.h"

namespace tidewright::encoding {
namespace {
using namespace std::chrono_literals;
using simulation::BoatState;
using std::chrono::sys_days;

constexpr platform::WallTime noon(std::chrono::year_month_day date) {
    return sys_days{date} + 12h;
}

constexpr platform::WallTime noonIn1994 = noon(std::chrono::March / 23 / 1994);

struct NMEA0183EncoderTest : testing::Test {
    NMEA0183Encoder encoder{.talker = "GP"};
    NMEA0183Encoder instruments{.talker = "II"};
    BoatState state{.latitude = 48.1173,
                    .longitude = -11.5167,
                    .sog = 5.2,
                    .cog = 84.4,
                    .heading = 81.6,
                    .stw = 5.0,
                    .apparentWindAngle = -40,
                    .apparentWindSpeed = 15,
                    .trueWindAngle = 55,
                    .trueWindSpeed = 12.34,
                    .depth = 12,
                    .waterTemperature = 16.5,
                    .gpsFix = true,
                    .satelliteCount = 8,
                    .timestamp = noonIn1994 + 35min + 19s};

    std::string everySentence() const {
        return encoder.rmc(state) + encoder.gga(state) + encoder.vtg(state) +
               instruments.hdt(state) + instruments.hdg(state) + instruments.vhw(state) +
               instruments.mwvApparent(state) + instruments.mwvTrue(state) +
               instruments.dbt(state) + instruments.dpt(state) + instruments.mtw(state);
    }

    static std::string field(const std::string& sentence, std::size_t index) {
        return AivdmDecoder::fields(sentence).at(index);
    }
};

TEST_F(NMEA0183EncoderTest, writesEverySentenceWhole) {
    EXPECT_EQ(encoder.rmc(state),
              "$GPRMC,123519.00,A,4807.0380,N,01131.0020,W,5.2,84.4,230394,,,A*71\r\n");
    EXPECT_EQ(encoder.gga(state),
              "$GPGGA,123519.00,4807.0380,N,01131.0020,W,1,08,0.8,0.0,M,48.0,M,,*7F\r\n");
    EXPECT_EQ(encoder.vtg(state), "$GPVTG,84.4,T,,M,5.2,N,9.6,K,A*3D\r\n");
    EXPECT_EQ(instruments.hdt(state), "$IIHDT,81.6,T*1D\r\n");
    EXPECT_EQ(instruments.hdg(state), "$IIHDG,81.6,,,,*76\r\n");
    EXPECT_EQ(instruments.vhw(state), "$IIVHW,81.6,T,,M,5.0,N,9.3,K*4B\r\n");
    EXPECT_EQ(instruments.mwvApparent(state), "$IIMWV,320.0,R,15.0,N,A*08\r\n");
    EXPECT_EQ(instruments.mwvTrue(state), "$IIMWV,55.0,T,12.3,N,A*3B\r\n");
    EXPECT_EQ(instruments.dbt(state), "$IIDBT,39.4,f,12.0,M,6.6,F*1C\r\n");
    EXPECT_EQ(instruments.dpt(state), "$IIDPT,12.0,0.0,*5F\r\n");
    EXPECT_EQ(instruments.mtw(state), "$IIMTW,16.5,C*11\r\n");
}

TEST_F(NMEA0183EncoderTest, putsAnyTalkerInFront) {
    EXPECT_TRUE(NMEA0183Encoder{.talker = "GN"}.rmc(state).starts_with("$GNRMC,"));
}

TEST_F(NMEA0183EncoderTest, sendsAWrongChecksumOnRequestAndTheSameBody) {
    encoder.corrupt = instruments.corrupt = true;
    EXPECT_TRUE(encoder.rmc(state).ends_with(",,,A*8E\r\n"));
    EXPECT_EQ(instruments.mtw(state), "$IIMTW,16.5,C*EE\r\n");
}

TEST_F(NMEA0183EncoderTest, tellsOfAMissingFixInRmcAndGgaButNotInTheMode) {
    state.gpsFix = false;
    EXPECT_EQ(field(encoder.rmc(state), 2), "V");
    EXPECT_EQ(field(encoder.rmc(state), 12), "A");
    EXPECT_EQ(field(encoder.gga(state), 6), "0");
}

TEST_F(NMEA0183EncoderTest, bringsCoursesAndHeadingsIntoOneTurn) {
    state.cog = state.heading = -10;
    EXPECT_EQ(field(encoder.rmc(state), 8), "350.0");
    EXPECT_EQ(field(encoder.vtg(state), 1), "350.0");
    EXPECT_EQ(field(instruments.hdt(state), 1), "350.0");
    EXPECT_EQ(field(instruments.hdg(state), 1), "350.0");
    EXPECT_EQ(field(instruments.vhw(state), 1), "350.0");
    state.cog = 360;
    EXPECT_EQ(field(encoder.rmc(state), 8), "0.0");
}

TEST_F(NMEA0183EncoderTest, bringsWindFromPortIntoOneTurn) {
    state.apparentWindAngle = state.trueWindAngle = -45.5;
    EXPECT_EQ(field(instruments.mwvApparent(state), 1), "314.5");
    EXPECT_EQ(field(instruments.mwvTrue(state), 1), "314.5");
}

TEST_F(NMEA0183EncoderTest, roundsAfterNormalisingSoThatAFullTurnCanBeSent) {
    state.cog = 359.96;
    EXPECT_EQ(field(encoder.rmc(state), 8), "360.0");
    state.cog = -1e-14;
    EXPECT_EQ(field(encoder.rmc(state), 8), "360.0");
}

TEST_F(NMEA0183EncoderTest, writesMinusZeroAsPrintfDoes) {
    state.cog = -360;
    EXPECT_EQ(field(encoder.rmc(state), 8), "-0.0");
    state.waterTemperature = -0.04;
    EXPECT_EQ(field(instruments.mtw(state), 1), "-0.0");
}

TEST_F(NMEA0183EncoderTest, writesTwoDigitsOfSatellites) {
    state.satelliteCount = 0;
    EXPECT_EQ(field(encoder.gga(state), 7), "00");
    state.satelliteCount = 13;
    EXPECT_EQ(field(encoder.gga(state), 7), "13");
}

TEST_F(NMEA0183EncoderTest, convertsToKilometresFeetAndFathoms) {
    state.sog = state.stw = 10;
    state.depth = 100;
    EXPECT_EQ(field(encoder.vtg(state), 7), "18.5");
    EXPECT_EQ(field(instruments.vhw(state), 7), "18.5");
    EXPECT_EQ(field(instruments.dbt(state), 1), "328.1");
    EXPECT_EQ(field(instruments.dbt(state), 5), "54.7");
}

TEST_F(NMEA0183EncoderTest, keepsToTheLongestLineThatTheStandardAllows) {
    state = {.latitude = -89.99999,
             .longitude = -179.99999,
             .sog = 40.5,
             .cog = 359.9,
             .gpsFix = true,
             .satelliteCount = 13,
             .timestamp = noonIn1994};
    EXPECT_LE(encoder.rmc(state).size(), 82U);
    EXPECT_LE(encoder.gga(state).size(), 82U);
}

TEST_F(NMEA0183EncoderTest, writesPointsWhateverTheLanguageOfTheDesktop) {
    const std::string atHome = everySentence();
    const ForeignNumbers abroad;
    EXPECT_EQ(everySentence(), atHome);
    EXPECT_EQ(NMEA0183Encoder::f(12345.678, 2), "12345.68");
}

TEST_F(NMEA0183EncoderTest, stopsTheProgramOnAPositionThatIsNotFinite) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
    for (const double wrong : {infinity, -infinity, notANumber}) {
        EXPECT_DEATH(NMEA0183Encoder::lat(wrong), "a coordinate must be finite");
        EXPECT_DEATH(NMEA0183Encoder::lon(wrong), "a coordinate must be finite");
    }
}

TEST(NMEA0183EncoderPositionTest, isDegreesAndMinutesWithAHemisphere) {
    EXPECT_EQ(NMEA0183Encoder::lat(48.1173), "4807.0380,N");
    EXPECT_EQ(NMEA0183Encoder::lat(-5.5), "0530.0000,S");
    EXPECT_EQ(NMEA0183Encoder::lon(-11.5167), "01131.0020,W");
    EXPECT_EQ(NMEA0183Encoder::lon(179.25), "17915.0000,E");
}

TEST(NMEA0183EncoderPositionTest, hasItsHemisphereOnTheEquatorAndTheMeridianToo) {
    EXPECT_EQ(NMEA0183Encoder::lat(0), "0000.0000,N");
    EXPECT_EQ(NMEA0183Encoder::lat(-0.0), "0000.0000,N");
    EXPECT_EQ(NMEA0183Encoder::lon(0), "00000.0000,E");
    EXPECT_EQ(NMEA0183Encoder::lon(-0.5), "00030.0000,W");
}

TEST(NMEA0183EncoderPositionTest, letsMinutesReachSixtyWithoutCarrying) {
    EXPECT_EQ(NMEA0183Encoder::lat(10.9999999), "1060.0000,N");
    EXPECT_EQ(NMEA0183Encoder::lon(-10.9999999), "01060.0000,W");
}

TEST(NMEA0183EncoderTimeTest, showsHundredthsOfASecond) {
    EXPECT_EQ(NMEA0183Encoder::utcTime(noonIn1994), "120000.00");
    EXPECT_EQ(NMEA0183Encoder::utcTime(noonIn1994 + 3h + 4min + 5s + 60ms), "150405.06");
}

TEST(NMEA0183EncoderTimeTest, roundsHundredthsAndNeverCarries) {
    EXPECT_EQ(NMEA0183Encoder::utcTime(noonIn1994 + 994ms), "120000.99");
    EXPECT_EQ(NMEA0183Encoder::utcTime(noonIn1994 + 994'999'999ns), "120000.99");
    EXPECT_EQ(NMEA0183Encoder::utcTime(noonIn1994 + 995ms), "120000.00");
    EXPECT_EQ(NMEA0183Encoder::utcTime(noonIn1994 + 996ms), "120000.00");
    EXPECT_EQ(NMEA0183Encoder::utcTime(noonIn1994 + 15ms), "120000.02");
}

TEST(NMEA0183EncoderTimeTest, turnsTheDayAtMidnight) {
    const platform::WallTime midnight = sys_days{std::chrono::January / 1 / 2026};
    EXPECT_EQ(NMEA0183Encoder::utcTime(midnight - 500ms), "235959.50");
    EXPECT_EQ(NMEA0183Encoder::utcDate(midnight - 500ms), "311225");
    EXPECT_EQ(NMEA0183Encoder::utcTime(midnight), "000000.00");
    EXPECT_EQ(NMEA0183Encoder::utcDate(midnight), "010126");
}

TEST(NMEA0183EncoderTimeTest, countsForwardBeforeTheEpochToo) {
    EXPECT_EQ(NMEA0183Encoder::utcTime(platform::WallTime{} - 500ms), "235959.50");
    EXPECT_EQ(NMEA0183Encoder::utcDate(platform::WallTime{} - 500ms), "311269");
}

TEST(NMEA0183EncoderTimeTest, writesTwoDigitsOfTheYear) {
    EXPECT_EQ(NMEA0183Encoder::utcDate(noon(std::chrono::July / 4 / 2005)), "040705");
    EXPECT_EQ(NMEA0183Encoder::utcDate(noon(std::chrono::February / 29 / 2000)), "290200");
}

TEST(NMEA0183EncoderNumberTest, roundsAsPrintfDoes) {
    EXPECT_EQ(NMEA0183Encoder::f(0.25, 1), "0.2");  // an exact half goes to the even digit
    EXPECT_EQ(NMEA0183Encoder::f(0.75, 1), "0.8");
    EXPECT_EQ(NMEA0183Encoder::f(0.05, 1), "0.1");  // a little more than a half
    EXPECT_EQ(NMEA0183Encoder::f(2.5, 0), "2");
    EXPECT_EQ(NMEA0183Encoder::f(1.0 / 3, 4), "0.3333");
}

TEST(NMEA0183EncoderNumberTest, roundsNegativeNumbersAsItDoesPositiveOnes) {
    EXPECT_EQ(NMEA0183Encoder::f(-0.25, 1), "-0.2");
    EXPECT_EQ(NMEA0183Encoder::f(-1.96, 1), "-2.0");
    EXPECT_EQ(NMEA0183Encoder::f(-0.0, 1), "-0.0");
    EXPECT_EQ(NMEA0183Encoder::f(-0.04, 1), "-0.0");
}

}  // namespace
}  // namespace tidewright::encoding
