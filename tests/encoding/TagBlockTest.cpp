#include "encoding/TagBlock.h"

#include <gtest/gtest.h>

namespace tidewright::encoding {
namespace {
using namespace std::chrono_literals;

TEST(TagBlockTest, namesSourceAndTimeInMilliseconds) {
    EXPECT_EQ(tagBlock(platform::WallTime(1'780'315'200'123'999'999ns)),
              "\\s:tidewright,c:1780315200123*0C\\");
}

TEST(TagBlockTest, knowsASentenceThatBringsItsOwn) {
    EXPECT_TRUE(hasTagBlock("\\c:1*00\\$IIMTW,16.5,C*11\r\n"));
    EXPECT_FALSE(hasTagBlock("$IIMTW,16.5,C*11\r\n"));
    EXPECT_FALSE(hasTagBlock(""));
}

TEST(TagBlockTest, measuresTheBlocksInFrontOfASentence) {
    EXPECT_EQ(tagBlockSize("\\c:1*00\\$IIMTW,16.5,C*11\r\n"), 8U);
    EXPECT_EQ(tagBlockSize("\\c:1*00\\\\s:a*00\\$IIMTW"), 16U);
    EXPECT_EQ(tagBlockSize("\\c:1*00\\"), 8U);
    EXPECT_EQ(tagBlockSize("$IIMTW,\\c:1*00\\"), 0U);
}

TEST(TagBlockTest, takesNoOpenBlockForOne) {
    EXPECT_EQ(tagBlockSize("\\"), 0U);
    EXPECT_EQ(tagBlockSize("\\c:1*00$IIMTW\r\n"), 0U);
    EXPECT_EQ(tagBlockSize("\\c:1*00\\\\s:a$IIMTW"), 8U);
    EXPECT_FALSE(hasTagBlock("\\c:1*00$IIMTW\r\n"));
}

}  // namespace
}  // namespace tidewright::encoding
