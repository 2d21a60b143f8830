#include "network/SentenceTape.h"

#include <gtest/gtest.h>

namespace tidewright::network {
namespace {

SharedBytes sentence(const char* text) {
    return std::make_shared<const std::string>(text);
}

TEST(SentenceTapeTest, beginsEmptyAtZero) {
    const SentenceTape tape(10);
    EXPECT_EQ(tape.begin(), 0u);
    EXPECT_EQ(tape.end(), 0u);
}

TEST(SentenceTapeTest, numbersSentencesAsTheyCome) {
    SentenceTape tape(10);
    tape.append(sentence("abc"));
    tape.append(sentence("def"));
    EXPECT_EQ(tape.end(), 2u);
    EXPECT_EQ(*tape.at(0), "abc");
    EXPECT_EQ(*tape.at(1), "def");
}

TEST(SentenceTapeTest, sharesWhatItIsGivenRatherThanCopyIt) {
    SentenceTape tape(10);
    const auto given = sentence("abc");
    tape.append(given);
    EXPECT_EQ(tape.at(0), given);
}

TEST(SentenceTapeTest, keepsNumbersWhenTheOldestFallOff) {
    SentenceTape tape(10);
    for (const auto* text : {"aaaa", "bbbb", "cc", "dd"}) tape.append(sentence(text));
    EXPECT_EQ(tape.begin(), 1u);
    EXPECT_EQ(*tape.at(1), "bbbb");
    EXPECT_EQ(tape.end(), 4u);
}

TEST(SentenceTapeTest, keepsTheNewestSentenceHoweverLong) {
    SentenceTape tape(10);
    tape.append(sentence("aaaa"));
    tape.append(sentence("longer than the tape"));
    EXPECT_EQ(tape.begin(), 1u);
    EXPECT_EQ(tape.end(), 2u);
}

}  // namespace
}  // namespace tidewright::network
