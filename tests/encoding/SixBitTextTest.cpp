#include "encoding/SixBitText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace tidewright::encoding {
namespace {

using testing::ElementsAre;

/// What a receiver shows for `text`.
std::string onTheAir(std::string_view text, int chars) {
    std::string shown;
    for (const std::uint8_t value : sixBitText(text, chars))
        shown += static_cast<char>(value < 32 ? value + 64 : value);
    return shown;
}

TEST(SixBitTextTest, numbersTheAlphabetFromAtToUnderscoreThenFromSpaceToQuestionMark) {
    EXPECT_THAT(sixBitText("@AZ_", 4), ElementsAre(0, 1, 26, 31));
    EXPECT_THAT(sixBitText(" 09?", 4), ElementsAre(32, 48, 57, 63));
}

TEST(SixBitTextTest, sendsSmallLettersAsCapitals) {
    EXPECT_EQ(onTheAir("Pen Duick az", 12), "PEN DUICK AZ");
}

TEST(SixBitTextTest, cutsALongTextAndPadsAShortOne) {
    EXPECT_EQ(onTheAir("ABCDE", 3), "ABC");
    EXPECT_EQ(onTheAir("FGA0", 7), "FGA0@@@");
    EXPECT_EQ(onTheAir("FGA8910", 7), "FGA8910");
    EXPECT_EQ(onTheAir("", 2), "@@");
    EXPECT_EQ(onTheAir("ABC", 0), "");
}

TEST(SixBitTextTest, hasNoPlaceForWhatIsOutsideTheAlphabet) {
    EXPECT_EQ(onTheAir("a`b{c\n\x7f", 7), "A@B@C@@");
}

TEST(SixBitTextTest, countsALetterOutsideASCIIOnceHoweverManyBytesItTakes) {
    EXPECT_EQ(onTheAir("\u00c9TOILE", 7), "@TOILE@");
    EXPECT_EQ(onTheAir("\u00e9\u20ac\U0001F6A2X", 4), "@@@X");
}

TEST(SixBitTextTest, countsALetterAndItsCombiningAccentAsTwo) {
    EXPECT_EQ(onTheAir("e\u0301T", 4), "E@T@");
}

TEST(SixBitTextTest, spellsOutLettersWhoseCapitalsAreInTheAlphabet) {
    EXPECT_EQ(onTheAir("Stra\u00dfe", 8), "STRASSE@");
    EXPECT_EQ(onTheAir("\u0131\u017f\ufb01\ufb04", 8), "ISFIFFL@");
}

TEST(SixBitTextTest, cutsInTheMiddleOfALetterSpeltOut) {
    EXPECT_EQ(onTheAir("AB\u00df", 3), "ABS");
    EXPECT_EQ(onTheAir("A\ufb03", 3), "AFF");
}

TEST(SixBitTextTest, takesABrokenByteForALetterOutsideTheAlphabet) {
    EXPECT_EQ(onTheAir("A\xff\x80"
                       "B",
                       4),
              "A@@B");
    EXPECT_EQ(onTheAir("A\xc3", 3), "A@@");
    EXPECT_EQ(onTheAir("\xe2\x82Z", 3), "@@Z");
}

}  // namespace
}  // namespace tidewright::encoding
