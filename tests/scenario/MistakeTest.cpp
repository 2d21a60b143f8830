#include "scenario/Mistake.h"

#include <gtest/gtest.h>

namespace tidewright::scenario {
namespace {

TEST(MistakeTest, countsLinesAndCharactersFromOne) {
    EXPECT_EQ(placeIn("abc", 0), (Place{1, 1}));
    EXPECT_EQ(placeIn("abc", 3), (Place{1, 4}));
    EXPECT_EQ(placeIn("a\nbc", 3), (Place{2, 2}));
    EXPECT_EQ(placeIn("a\r\nb\rc", 5), (Place{3, 1}));
}

TEST(MistakeTest, countsCharactersNotBytes) {
    EXPECT_EQ(placeIn("é⛵: x", 7), (Place{1, 5}));
}

TEST(MistakeTest, findsWhatIsNotUtf8) {
    for (const char* each : {"a\xE9", "a\xC3", "a\xC0\xAF", "a\xED\xA0\x80", "a\xF4\x90\x80\x80",
                             "a\x80", "a\xE0\x80\x80", "a\xFF"}) {
        const auto stray = strayCharacter(each);
        ASSERT_TRUE(stray) << each;
        EXPECT_EQ(stray->offset, 1U) << each;
        EXPECT_EQ(stray->text, "ce n'est pas de l'UTF-8.");
    }
    EXPECT_EQ(strayCharacter("é ⛵ 𝄞\t\r\n"), std::nullopt);
}

TEST(MistakeTest, findsControlCharacters) {
    using namespace std::string_view_literals;
    for (const auto each : {"ab\0"sv, "ab\x04"sv, "ab\x1B[0m"sv, "ab\x7F"sv, "ab\xC2\x9B"sv})
        EXPECT_EQ(strayCharacter(each).value_or(Mistake{}).offset, 2U);
}

TEST(MistakeTest, makesOneLineOfManyCharacters) {
    EXPECT_EQ(oneLine(" a\n\tb  c\x1B[0m é\xC2\x9B "), "a b c [0m é");
    EXPECT_EQ(oneLine(""), "");
    EXPECT_EQ(oneLine("\xE9\n"), "\xE9");
}

TEST(MistakeTest, isToldWithItsPlaceAndCounted) {
    EXPECT_EQ(mistakesText("a.yaml", "a\nbé: c\n", {{6, "non."}}),
              "a.yaml:2:4: non.\n"
              "ERREUR : 1 faute dans a.yaml\n");
}

TEST(MistakeTest, isToldOnceAndInTheTextsOrder) {
    EXPECT_EQ(mistakesText("a.yaml", "abc", {{2, "zut."}, {0, "non."}, {2, "zut."}}),
              "a.yaml:1:1: non.\n"
              "a.yaml:1:3: zut.\n"
              "ERREUR : 2 fautes dans a.yaml\n");
}

TEST(MistakeTest, isToldTwentyTimesAtMost) {
    std::vector<Mistake> many(30);
    for (std::size_t i = 0; i < many.size(); ++i) many[i] = {i, "non."};
    const std::string told = mistakesText("a.yaml", std::string(30, 'a'), many);
    EXPECT_NE(told.find("a.yaml:1:20: non.\nERREUR : 20 fautes dans a.yaml\n"), std::string::npos);
}

TEST(MistakeTest, isOneLineOfBoundedLength) {
    std::string what(498, 'a');
    what += "\né" + std::string(5000, 'b');
    const std::string told = mistakesText("a.yaml", "", {{0, what}});
    EXPECT_EQ(told.substr(0, told.find('\n')), "a.yaml:1:1: " + std::string(498, 'a') + " ");
}

}  // namespace
}  // namespace tidewright::scenario
