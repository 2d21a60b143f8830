#include "gateway/FamilySentences.h"

#include <gmock/gmock.h>

namespace tidewright::gateway {
namespace {
using testing::ElementsAre;
using testing::IsEmpty;

struct FamilySentencesTest : testing::Test {
    simulation::BoatState state = simulation::BoatState::starting({});

    auto of(SentenceKind kind, bool corrupt = false) const {
        return familySentences(kind, state, "GP", corrupt);
    }
};

TEST_F(FamilySentencesTest, bringTheHeadingIntoOneTurn) {
    state.heading = -10;
    EXPECT_THAT(of(SentenceKind::heading),
                ElementsAre("$IIHDT,350.0,T*24\r\n", "$IIHDG,350.0,,,,*4F\r\n"));
    state.heading = 360;
    EXPECT_THAT(of(SentenceKind::heading),
                ElementsAre("$IIHDT,0.0,T*22\r\n", "$IIHDG,0.0,,,,*49\r\n"));
}

TEST_F(FamilySentencesTest, giveTheGpsFamiliesTheChosenTalker) {
    EXPECT_THAT(
        of(SentenceKind::position),
        ElementsAre("$GPRMC,000000.00,A,4724.0000,N,00333.0000,W,6.0,120.0,010170,,,A*48\r\n",
                    "$GPGGA,000000.00,4724.0000,N,00333.0000,W,1,11,0.8,0.0,M,48.0,M,,*7C\r\n"));
    EXPECT_THAT(of(SentenceKind::courseSpeed),
                ElementsAre("$GPVTG,120.0,T,,M,6.0,N,11.1,K,A*39\r\n"));
}

TEST_F(FamilySentencesTest, giveTheApparentWindBeforeTheTrue) {
    EXPECT_THAT(of(SentenceKind::wind),
                ElementsAre("$IIMWV,40.0,R,15.0,N,A*3D\r\n", "$IIMWV,55.0,T,12.0,N,A*38\r\n"));
}

TEST_F(FamilySentencesTest, giveTheDepthTwice) {
    EXPECT_THAT(of(SentenceKind::depth),
                ElementsAre("$IIDBT,39.4,f,12.0,M,6.6,F*1C\r\n", "$IIDPT,12.0,0.0,*5F\r\n"));
}

TEST_F(FamilySentencesTest, corruptEverySentenceOfAFamilyOrNone) {
    EXPECT_THAT(of(SentenceKind::depth, true),
                ElementsAre("$IIDBT,39.4,f,12.0,M,6.6,F*E3\r\n", "$IIDPT,12.0,0.0,*A0\r\n"));
}

TEST_F(FamilySentencesTest, leaveAisToItsOwnReports) {
    EXPECT_THAT(of(SentenceKind::ais), IsEmpty());
}

}  // namespace
}  // namespace tidewright::gateway
