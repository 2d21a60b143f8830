#include "network/TapeReader.h"

#include <gtest/gtest.h>

#include <array>

namespace tidewright::network {
namespace {

struct TapeReaderTest : testing::Test {
    SentenceTape tape{8};
    TapeReader reader{0};

    void append(const char* text) { tape.append(std::make_shared<const std::string>(text)); }

    /// What the reader is to send next, its pieces between bars.
    std::string upcoming() {
        std::array<std::string_view, 3> pieces;
        const auto count = reader.upcoming(tape, pieces);
        std::string text = "|";
        for (std::size_t i = 0; i < count; ++i) text.append(pieces[i]).append("|");
        return text;
    }

    void advance(std::size_t bytes) { reader.advance(tape, bytes); }
};

TEST_F(TapeReaderTest, hasNothingToSendAtTheEndOfTheTape) {
    EXPECT_EQ(upcoming(), "|");
    append("abc");
    EXPECT_EQ(upcoming(), "|abc|");
    advance(3);
    EXPECT_EQ(upcoming(), "|");
}

TEST_F(TapeReaderTest, givesNoMoreThanThereIsRoomFor) {
    for (const auto* text : {"ab", "cd", "ef", "gh"}) append(text);
    EXPECT_EQ(upcoming(), "|ab|cd|ef|");
    advance(6);
    EXPECT_EQ(upcoming(), "|gh|");
}

TEST_F(TapeReaderTest, goesOnWithinTheSentenceBegun) {
    append("abc");
    append("def");
    upcoming();
    advance(4);
    EXPECT_EQ(reader.remainder(), "ef");
    EXPECT_EQ(upcoming(), "|ef|");
    advance(1);
    EXPECT_EQ(upcoming(), "|f|");
    advance(1);
    EXPECT_EQ(reader.remainder(), "");
}

TEST_F(TapeReaderTest, countsTheBytesThatHaveLeft) {
    append("abc");
    append("def");
    upcoming();
    advance(4);
    EXPECT_EQ(reader.sentBytes(), 4);
    advance(2);
    EXPECT_EQ(reader.sentBytes(), 6);
}

TEST_F(TapeReaderTest, countsTheSentencesThatTheTapeLetGoOf) {
    for (const auto* text : {"ab", "cd", "ef", "gh"}) append(text);
    EXPECT_EQ(reader.missedSentences(tape), 0);
    append("ij");
    EXPECT_EQ(reader.missedSentences(tape), 1) << "before the reader has looked";
    upcoming();
    append("kl");
    EXPECT_EQ(reader.missedSentences(tape), 2);
    upcoming();
    EXPECT_EQ(reader.missedSentences(tape), 2);
}

TEST_F(TapeReaderTest, doesNotMissTheSentenceBegun) {
    append("abc");
    upcoming();
    advance(1);
    append("12345678");
    EXPECT_EQ(reader.missedSentences(tape), 0);
}

TEST_F(TapeReaderTest, staysWhereItIsWhenNothingLeft) {
    append("abc");
    upcoming();
    advance(0);
    EXPECT_EQ(upcoming(), "|abc|");
}

TEST_F(TapeReaderTest, losesWholeSentencesWhenTheTapeOvertakesIt) {
    for (const auto* text : {"aaa", "bbb"}) append(text);
    upcoming();
    for (const auto* text : {"ccc", "ddd"}) append(text);
    EXPECT_EQ(upcoming(), "|ccc|ddd|");
}

TEST_F(TapeReaderTest, finishesTheSentenceBegunBeforeItSkips) {
    for (const auto* text : {"aaa", "bbb"}) append(text);
    upcoming();
    advance(1);
    for (const auto* text : {"ccc", "ddd"}) append(text);
    EXPECT_EQ(upcoming(), "|aa|ccc|ddd|");
    advance(3);
    EXPECT_EQ(upcoming(), "|cc|ddd|");
}

}  // namespace
}  // namespace tidewright::network
