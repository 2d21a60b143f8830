#include "faults/SentenceFaults.h"

#include <gmock/gmock.h>

namespace tidewright::faults {
namespace {
using testing::ElementsAre;

struct SentenceFaultsTest : testing::Test {
    FailureInjection faults;
    const SentenceFaults sentences{faults};
};

TEST_F(SentenceFaultsTest, leaveSentencesAloneWithoutAFault) {
    EXPECT_THAT(sentences.apply({"$IIMTW,16.5,C*11\r\n"}), ElementsAre("$IIMTW,16.5,C*11\r\n"));
}

TEST_F(SentenceFaultsTest, invertTheChecksumOfEverySentence) {
    faults.invalidChecksum = true;
    EXPECT_THAT(sentences.apply({"$IIDBT,39.4,f,12.0,M,6.6,F*1C\r\n", "$IIDPT,12.0,0.0,*5F\r\n"}),
                ElementsAre("$IIDBT,39.4,f,12.0,M,6.6,F*E3\r\n", "$IIDPT,12.0,0.0,*A0\r\n"));
}

TEST_F(SentenceFaultsTest, invertTheChecksumOfAisLikewise) {
    faults.invalidChecksum = true;
    EXPECT_THAT(sentences.apply({"!AIVDM,1,1,,A,13aEOK?P00PD2wVMdLDRhgvL289?,0*26\r\n"}),
                ElementsAre("!AIVDM,1,1,,A,13aEOK?P00PD2wVMdLDRhgvL289?,0*D9\r\n"));
}

}  // namespace
}  // namespace tidewright::faults
