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

TEST_F(SentenceFaultsTest, leaveATagBlockAlone) {
    faults.invalidChecksum = true;
    EXPECT_THAT(sentences.apply({"\\c:1*69\\$IIMTW,16.5,C*11\r\n", "\\c:1*69\\\r\n"}),
                ElementsAre("\\c:1*69\\$IIMTW,16.5,C*EE\r\n", "\\c:1*69\\\r\n"));
}

TEST_F(SentenceFaultsTest, invertTheChecksumThatStandsThereWhateverItIs) {
    faults.invalidChecksum = true;
    EXPECT_THAT(sentences.apply({"$IIMTW,16.5,C*00\r\n", "$IIMTW,16.5,C*4b\r\n", "*a0\r\n"}),
                ElementsAre("$IIMTW,16.5,C*FF\r\n", "$IIMTW,16.5,C*B4\r\n", "*5F\r\n"));
}

TEST_F(SentenceFaultsTest, leaveLinesWithoutAChecksumAlone) {
    faults.invalidChecksum = true;
    const std::vector<std::string> lines{"",
                                         "\r\n",
                                         "*\r\n",
                                         "*1\r\n",
                                         "11\r\n",
                                         "$IIMTW,16.5,C\r\n",
                                         "$II*11,C\r\n",
                                         "$II*1G\r\n",
                                         "$II*\xC3\xA9\r\n",
                                         std::string("\0\0\0\0\r\n", 6),
                                         "\\\r\n"};
    EXPECT_EQ(sentences.apply(lines), lines);
}

}  // namespace
}  // namespace tidewright::faults
