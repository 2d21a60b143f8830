#include "encoding/BitWriter.h"

#include <gtest/gtest.h>

namespace tidewright::encoding {
namespace {

struct BitWriterTest : testing::Test {
    BitWriter bits;
};

TEST_F(BitWriterTest, isEmptyAtFirst) {
    EXPECT_EQ(bits.armored(), (ArmoredBits{"", 0}));
}

TEST_F(BitWriterTest, writesTheMostSignificantBitFirst) {
    bits.append(0b100, 3);
    bits.append(0b001, 3);
    EXPECT_EQ(bits.armored(), (ArmoredBits{"Q", 0}));  // 100001 is 33
}

TEST_F(BitWriterTest, takesOnlyTheLowBitsOfAValue) {
    bits.append(0xFF00, 6);
    bits.append(static_cast<std::uint64_t>(-1), 6);
    EXPECT_EQ(bits.armored(), (ArmoredBits{"0w", 0}));
}

TEST_F(BitWriterTest, leadsAFieldWiderThanAValueWithZeros) {
    bits.append(static_cast<std::uint64_t>(-1), 78);
    EXPECT_EQ(bits.armored(), (ArmoredBits{"00?wwwwwwwwww", 0}));
}

TEST_F(BitWriterTest, appendsNothingBelowOneBit) {
    bits.append(63, 0);
    bits.append(63, -3);
    EXPECT_EQ(bits.armored(), (ArmoredBits{"", 0}));
}

TEST_F(BitWriterTest, fillsTheLastCharacterWithZeros) {
    bits.append(1, 1);
    EXPECT_EQ(bits.armored(), (ArmoredBits{"P", 5}));
    bits.append(0b111111, 6);
    EXPECT_EQ(bits.armored(), (ArmoredBits{"wP", 5}));
    bits.append(0, 5);
    EXPECT_EQ(bits.armored(), (ArmoredBits{"wP", 0}));
}

TEST_F(BitWriterTest, armoursTheSixtyFourValuesAsPublished) {
    for (unsigned value = 0; value < 64; ++value) bits.append(value, 6);
    EXPECT_EQ(bits.armored().text,
              "0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVW`abcdefghijklmnopqrstuvw");
}

TEST_F(BitWriterTest, armoursTextInSixBitCharacters) {
    bits.append(1, 2);
    bits.appendString("z?", 3);
    bits.append(0, 4);
    EXPECT_EQ(bits.armored(), (ArmoredBits{"Fgh0", 0}));  // 010110 101111 110000 000000
}

TEST_F(BitWriterTest, writesAPublishedPositionReport) {
    bits.append(1, 6);
    bits.append(0, 2);
    bits.append(477553000, 30);
    bits.append(5, 4);                                       // moored
    bits.append(0, 8 + 10 + 1);                              // not turning, not moving
    bits.append(static_cast<std::uint64_t>(-73407500), 28);  // 122.345833 W
    bits.append(28549700, 27);                               // 47.582833 N
    bits.append(510, 12);
    bits.append(181, 9);
    bits.append(15, 6);
    bits.append(0, 2 + 3 + 1);
    bits.append(149208, 19);
    EXPECT_EQ(bits.armored(), (ArmoredBits{"177KQJ5000G?tO`K>RA1wUbN0TKH", 0}));
}

}  // namespace
}  // namespace tidewright::encoding
