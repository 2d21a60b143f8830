#include "network/LineReader.h"

#include <gmock/gmock.h>

#include <vector>

namespace tidewright::network {
namespace {
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> takeLines(LineReader& reader) {
    std::vector<std::string> lines;
    while (auto line = reader.next()) lines.push_back(*std::move(line));
    return lines;
}

/// The lines of `text` that comes in pieces of so many bytes.
std::vector<std::string> linesOf(std::string_view text, std::size_t piece,
                                 LineReader reader = LineReader()) {
    std::vector<std::string> lines;
    for (; !text.empty(); text.remove_prefix(std::min(piece, text.size()))) {
        reader.add(text.substr(0, piece));
        for (auto& each : takeLines(reader)) lines.push_back(std::move(each));
    }
    reader.finish();
    for (auto& each : takeLines(reader)) lines.push_back(std::move(each));
    return lines;
}

TEST(LineReaderTest, endsALineAtCrLfAndCrLfWhateverTheReads) {
    for (const std::size_t piece : {1U, 2U, 3U, 100U})
        EXPECT_THAT(linesOf("a\rbb\nccc\r\nd\n\re\r\n", piece),
                    ElementsAre("a\r\n", "bb\r\n", "ccc\r\n", "d\r\n", "e\r\n"));
}

TEST(LineReaderTest, passesOverEmptyLines) {
    for (const std::size_t piece : {1U, 100U})
        EXPECT_THAT(linesOf("\r\n\n\na\r\r\r\n\r\nb\n\n", piece), ElementsAre("a\r\n", "b\r\n"));
    EXPECT_THAT(linesOf("", 1), IsEmpty());
    EXPECT_THAT(linesOf("\r\n\r\n", 1), IsEmpty());
}

TEST(LineReaderTest, keepsEveryOtherByte) {
    const std::string odd(" \0\t\xFF\\ $*é \v", 12);
    EXPECT_THAT(linesOf(odd + "\n" + odd + "\n", 5), ElementsAre(odd + "\r\n", odd + "\r\n"));
}

TEST(LineReaderTest, countsALastLineWithoutAnEnd) {
    LineReader reader;
    reader.add("a\nb");
    EXPECT_THAT(takeLines(reader), ElementsAre("a\r\n"));
    reader.finish();
    EXPECT_THAT(takeLines(reader), ElementsAre("b\r\n"));
    EXPECT_THAT(takeLines(reader), IsEmpty());
}

TEST(LineReaderTest, givesALineAsSoonAsItEnds) {
    LineReader reader;
    reader.add("a\r");
    EXPECT_THAT(takeLines(reader), ElementsAre("a\r\n"));
    reader.add("\nb");
    EXPECT_THAT(takeLines(reader), IsEmpty());
}

TEST(LineReaderTest, dividesALineThatIsTooLong) {
    for (const std::size_t piece : {1U, 3U, 4U, 100U}) {
        EXPECT_THAT(linesOf("aaaabbbbcc\nd\n", piece, LineReader(4)),
                    ElementsAre("aaaa\r\n", "bbbb\r\n", "cc\r\n", "d\r\n"));
        EXPECT_THAT(linesOf("aaaa\r\nbbbbcccc\nd", piece, LineReader(4)),
                    ElementsAre("aaaa\r\n", "bbbb\r\n", "cccc\r\n", "d\r\n"));
    }
}

TEST(LineReaderTest, takesEightMebibytesForALineAndNoMore) {
    const std::size_t most = std::size_t{8} << 20;
    const auto lines = linesOf(std::string(most, 'x') + "\n" + std::string(most + 1, 'y'), 65'536);
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[0], std::string(most, 'x') + "\r\n");
    EXPECT_EQ(lines[1], std::string(most, 'y') + "\r\n");
    EXPECT_EQ(lines[2], "y\r\n");
}

}  // namespace
}  // namespace tidewright::network
