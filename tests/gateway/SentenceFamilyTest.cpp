#include "gateway/SentenceFamily.h"

#include <gmock/gmock.h>

namespace tidewright::gateway {
namespace {
using testing::ElementsAre;
using testing::SizeIs;

struct SentenceFamilyTest : testing::Test {
    simulation::BoatState boat = simulation::BoatState::starting({});
    std::vector<simulation::AISTarget> vessels;
    AISReports reports;
    std::string talker = "GP";

    auto of(SentenceKind kind) {
        return family(kind).sentences({.boat = boat,
                                       .vessels = vessels,
                                       .aisReports = reports,
                                       .gpsTalker = talker,
                                       .aisHz = 1,
                                       .now = {}});
    }
};

TEST_F(SentenceFamilyTest, isFoundByItsKind) {
    for (const SentenceFamily& each : sentenceFamilies)
        EXPECT_EQ(&family(each.kind), &each) << each.name;
}

TEST_F(SentenceFamilyTest, bringsTheHeadingIntoOneTurn) {
    boat.heading = -10;
    EXPECT_THAT(of(SentenceKind::heading),
                ElementsAre("$IIHDT,350.0,T*24\r\n", "$IIHDG,350.0,,,,*4F\r\n"));
    boat.heading = 360;
    EXPECT_THAT(of(SentenceKind::heading),
                ElementsAre("$IIHDT,0.0,T*22\r\n", "$IIHDG,0.0,,,,*49\r\n"));
}

TEST_F(SentenceFamilyTest, givesTheGpsFamiliesTheChosenTalker) {
    EXPECT_THAT(
        of(SentenceKind::position),
        ElementsAre("$GPRMC,000000.00,A,4724.0000,N,00333.0000,W,6.0,120.0,010170,,,A*48\r\n",
                    "$GPGGA,000000.00,4724.0000,N,00333.0000,W,1,11,0.8,0.0,M,48.0,M,,*7C\r\n"));
    talker = "GN";
    EXPECT_THAT(of(SentenceKind::courseSpeed),
                ElementsAre("$GNVTG,120.0,T,,M,6.0,N,11.1,K,A*27\r\n"));
}

TEST_F(SentenceFamilyTest, givesTheApparentWindBeforeTheTrue) {
    EXPECT_THAT(of(SentenceKind::wind),
                ElementsAre("$IIMWV,40.0,R,15.0,N,A*3D\r\n", "$IIMWV,55.0,T,12.0,N,A*38\r\n"));
}

TEST_F(SentenceFamilyTest, givesTheDepthTwice) {
    EXPECT_THAT(of(SentenceKind::depth),
                ElementsAre("$IIDBT,39.4,f,12.0,M,6.6,F*1C\r\n", "$IIDPT,12.0,0.0,*5F\r\n"));
}

TEST_F(SentenceFamilyTest, tellsOfEveryVesselAndMovesItsRhythmOn) {
    vessels.resize(3);
    EXPECT_THAT(of(SentenceKind::ais), SizeIs(3 + 6));
    EXPECT_THAT(of(SentenceKind::ais), SizeIs(3));
    EXPECT_EQ(reports.staticCountdown(), 9);
}

}  // namespace
}  // namespace tidewright::gateway
